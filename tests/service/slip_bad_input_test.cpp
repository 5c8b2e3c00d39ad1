// What a user, a file or the database may bring into the slip editor that does not belong there.
#include "base/data/my_query.h"
#include "service/slip_fields.h"
#include "tests/service/slip_form_fixture.h"
#include "tests/support/picture.h"
#include "toolkit/edits/time_edit.h"

namespace {

bool takesText(SlipEditor editor) { return editor == SlipEditor::Text || editor == SlipEditor::Button || editor == SlipEditor::Lookup; }

}  // namespace

class SlipBadInput : public SlipFormTest {
 protected:
  /// A file of these bytes, which the next file dialog gives.
  void chooseFile(const QString& name, const QByteArray& bytes) {
    dialogs.file = folder.filePath(name);
    put(dialogs.file, bytes);
  }
  QString storedPicture() { return rows(u"select concat(length(FT_RESIM), ' ', md5(FT_RESIM)) from foto"_s); }
  static QString digest(const QByteArray& bytes) {
    return QString::number(bytes.size()) + u' ' + QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
  }
  /// Width of a column of the slip; 0 for a type that has none.
  int width(const QString& column) {
    return rows(u"select ifnull(CHARACTER_MAXIMUM_LENGTH, 0) from information_schema.COLUMNS where TABLE_SCHEMA = 'kvtk' and "
                u"TABLE_NAME = 'teknikservis' and COLUMN_NAME = '%1'"_s.arg(column))
        .toInt();
  }
};

TEST_F(SlipBadInput, TenThousandCharactersGoIntoNoBoxUntold) {
  TfServisFis* slip = newSlip();
  const QString flood = u"ışğ"_s.repeated(3334);
  QHash<QString, int> widths;
  for (const SlipField& field : slipFields()) {
    if (field.editor == SlipEditor::ReadOnlyText || field.column == u"TS_TUTAR"_s) continue;
    SCOPED_TRACE(field.column.toStdString());
    refusalBalloon().hide();
    if (field.editor == SlipEditor::Memo || takesText(field.editor)) {
      QWidget* target = slip->control(field.column)->focusProxy();
      paste(target, flood);
      widths[field.column] = width(field.column);
      EXPECT_EQ(slip->text(field.column).size(), widths[field.column]);
      EXPECT_TRUE(refusalBalloon().text().contains(u"sonundaki %1 karakter"_s.arg(flood.size() - widths[field.column])))
          << qPrintable(refusalBalloon().text());
      continue;
    }
    const QString before = text(slip, field.column);
    for (const QString& much : {flood, QString(10000, u'9')}) {
      refusalBalloon().hide();
      paste(box(slip, field.column)->line(), much);
      EXPECT_EQ(text(slip, field.column), before);
      EXPECT_NE(refusalBalloon().isUp(), field.editor == SlipEditor::Combo);
      EXPECT_LT(refusalBalloon().text().size(), 120);
    }
  }
  EXPECT_GT(widths.size(), 20);
  pages(slip)->setCurrentIndex(TfServisFis::NotesPage);
  paste(note(slip)->editor(), flood);
  EXPECT_EQ(note(slip)->text().size(), flood.size());
  paste(reminder.TS_HATIRLATMA_NOTU->editor(), flood);
  EXPECT_EQ(reminder.TS_HATIRLATMA_NOTU->text().size(), width(u"TS_HATIRLATMA_NOTU"_s));

  ASSERT_EQ(saying(slip), u"Servis fiş kaydı tamamlandı."_s);
  for (auto column = widths.constKeyValueBegin(); column != widths.constKeyValueEnd(); ++column)
    EXPECT_EQ(rows(u"select %1 from teknikservis"_s.arg(column->first)), slip->text(column->first)) << qPrintable(column->first);
  EXPECT_EQ(rows(u"select SF_NOT from notlar"_s), flood);
}

TEST_F(SlipBadInput, HostileTextsAreStoredAsTheyStandOrRefusedAtTheirBox) {
  TfServisFis* slip = newSlip();
  const QString hostile = uR"('";\%_--/*#?:ID&M$1 €–“)"_s;
  for (const SlipField& field : slipFields())
    if (takesText(field.editor) || field.editor == SlipEditor::Memo)
      paste(slip->control(field.column)->focusProxy(), hostile.left(width(field.column)));
  box(slip, u"TS_NO"_s)->setText(u"'\\%_"_s);
  note(slip)->setText(hostile);
  addLine(slip, hostile, u"1"_s, u"1"_s);
  save(slip);
  EXPECT_EQ(rows(u"select TS_NO, TS_ACIKLAMA, TS_MUSTERI, TS_C_SIKAYET, SF_NOT, MZ_PARCA_ADI from teknikservis, notlar, malzeme"_s),
            (QStringList{u"'\\%_"_s} + QStringList(5, hostile)).join(u'|'));
  TfServisFis* again = openSlip(rows(u"select TS_ID from teknikservis"_s).toLongLong());
  EXPECT_EQ(text(again, u"TS_ACIKLAMA"_s), hostile);
  EXPECT_EQ(note(again)->text(), hostile);
  EXPECT_EQ(again->windowTitle(), u"('\\%_) Servis Fişi"_s);

  for (const QString& column : {u"TS_ACIKLAMA"_s, u"TS_C_SIKAYET"_s, u"SF_NOT"_s}) {
    TfServisFis* other = filledSlip(u"200"_s);
    paste(column == u"SF_NOT"_s ? note(other)->editor() : other->control(column)->focusProxy(), u"iyi \U0001F600 ж"_s);
    EXPECT_THAT(saying(other).toStdString(), testing::HasSubstr("\"\U0001F600\" (U+1F600) karakteri kaydedilemez"));
    EXPECT_EQ(rows(u"select count(*) from teknikservis"_s), u"1"_s);
    other->parentWidget()->close();
  }
}

TEST_F(SlipBadInput, APrefixIsMatchedAsTheServerMatches) {
  run(u"INSERT INTO teknikservis (TS_NO) VALUES ('150'), ('27'), ('A7'), ('%9')");
  TfServisFis* slip = newSlip();
  const std::vector<std::pair<QString, QString>> cases = {{u"1"_s, u"151"_s},   {u"%"_s, u"151"_s},        {u"_7"_s, u"28"_s},   {u"\\%"_s, u"\\%"_s},
                                                          {u"\\"_s, u"\\"_s},   {u"'"_s, u"'"_s},          {u"A"_s, u"A"_s},     {u"9"_s, u"9"_s},
                                                          {u"' or 1=1"_s, u"' or 1=1"_s}, {u"  "_s, u"151"_s}};
  for (const auto& [typed, proposed] : cases) {
    box(slip, u"TS_NO"_s)->setText(typed);
    box(slip, u"TS_NO"_s)->pressButton(1);
    EXPECT_EQ(text(slip, u"TS_NO"_s), proposed) << qPrintable(typed);
  }
}

TEST_F(SlipBadInput, ADateThatIsNoneInTheDatabaseIsShownForTheUserToMend) {
  run(u"INSERT INTO teknikservis (TS_NO, TS_MUSTERI, TS_C_AD, TS_C_SERINO, TS_C_GARBASTAR, TS_MALIYET, TS_HATIRLATMA_SAAT) VALUES "
      u"('1', 'M', 'C', 'SERI', '2020-00-00', 7, '25:00:00')");
  TfServisFis* slip = openSlip(savedId(u"1"_s));
  EXPECT_EQ(text(slip, u"TS_C_GARBASTAR"_s), u"2020-00-00"_s);
  EXPECT_EQ(text(slip, u"TS_MALIYET"_s), u"7,00"_s) << "what stands behind it is read as well";
  EXPECT_EQ(slip->windowTitle(), u"(1) Servis Fişi"_s);
  EXPECT_EQ(saying(slip), u"\"2020-00-00\" geçerli bir tarih değil."_s);
  EXPECT_TRUE(box(slip, u"TS_C_GARBASTAR"_s)->line()->hasFocus());
  enter(slip, u"TS_C_GARBASTAR"_s, u"01.05.2020"_s);
  EXPECT_EQ(saying(slip), u"\"25:00:00\" geçerli bir saat değil."_s);
  reminder.TS_HATIRLATMA_SAAT->setText({});
  save(slip);
  EXPECT_EQ(rows(u"select TS_C_GARBASTAR, TS_MALIYET, TS_HATIRLATMA_SAAT from teknikservis"_s), u"01.05.2020|7|~"_s);
}

TEST_F(SlipBadInput, AmountsBeyondAllSenseInTheDatabaseAreShownAndStay) {
  run(u"INSERT INTO teknikservis (TS_NO, TS_MUSTERI, TS_C_AD, TS_C_SERINO, TS_SERVIS_TUTAR, TS_ISCILIK_TUTAR, TS_PARCA_TUTAR, TS_TUTAR, "
      u"TS_MALIYET) VALUES ('1', 'M', 'C', 'SERI', 1e308, 1e308, -0.000001, 5, 1e-300)");
  const QString amounts = u"select concat_ws(' ', TS_SERVIS_TUTAR, TS_ISCILIK_TUTAR, TS_PARCA_TUTAR, TS_TUTAR, TS_MALIYET) from teknikservis"_s;
  const QString stored = rows(amounts);
  TfServisFis* slip = openSlip(savedId(u"1"_s));
  for (const QString& column : {u"TS_SERVIS_TUTAR"_s, u"TS_ISCILIK_TUTAR"_s, u"TS_PARCA_TUTAR"_s, u"TS_MALIYET"_s}) {
    box(slip, column)->line()->setFocus();
    press(Qt::Key_Return);
  }
  EXPECT_EQ(text(slip, u"TS_TUTAR"_s), u"5,00"_s) << "a sum that no number can hold is not shown as one";
  EXPECT_EQ(saying(slip), u"Servis fiş kaydı tamamlandı."_s);
  EXPECT_EQ(rows(amounts), stored);
}

TEST_F(SlipBadInput, OnlyReadableJpegFilesAreAdded) {
  TfServisFis* slip = filledSlip(u"100"_s);
  const QByteArray good = pictureBytes("JPG");
  chooseFile(u"iyi.jpg"_s, good);
  click(slip, u"btnEkle"_s);
  EXPECT_TRUE(dialogs.texts.isEmpty());
  const std::vector<std::pair<QByteArray, QString>> refused = {{"Merhaba, bu bir metin.", u"Resim bozuk"_s},
                                                               {{}, u"Dosya boş"_s},
                                                               {pictureBytes("PNG"), u"Resim bozuk"_s},
                                                               {good.left(100), u"Resim bozuk"_s},
                                                               {good + QByteArray(65 * 1024 * 1024, 'x'), u"en çok 64 MB"_s},
                                                               {good + QByteArray(40 * 1024 * 1024, '\''), u"en çok 64 MB"_s}};
  for (const auto& [bytes, told] : refused) {
    chooseFile(u"kötü.jpg"_s, bytes);
    dialogs.texts.clear();
    click(slip, u"btnEkle"_s);
    ASSERT_EQ(dialogs.texts.size(), 1);
    EXPECT_TRUE(dialogs.texts[0].contains(told)) << qPrintable(dialogs.texts[0]);
  }
  dialogs.file = folder.filePath(u"yok.jpg"_s);
  click(slip, u"btnEkle"_s);
  EXPECT_TRUE(dialogs.texts.last().contains(u"Dosya açılamadı"_s));
  dialogs.file = folder.filePath(u"yok/kopya.jpg"_s);
  click(slip, u"RzBitBtn1"_s);
  EXPECT_TRUE(dialogs.texts.last().contains(u"dosyasına yazılamadı"_s));
  save(slip);
  EXPECT_EQ(storedPicture(), digest(good)) << "the picture that stood there stays";

  // Every byte of thirty megabytes, those that a statement has to mark as well.
  QByteArray large = good;
  large.resize(30 * 1024 * 1024);
  for (qsizetype i = good.size(); i < large.size(); ++i) large[i] = char(i % 2 == 0 ? 0 : i / 2);
  chooseFile(u"büyük.jpg"_s, large);
  click(slip, u"btnEkle"_s);
  save(slip);
  EXPECT_EQ(storedPicture(), digest(large));
  TfServisFis* again = openSlip(savedId(u"100"_s));
  dialogs.file = folder.filePath(u"kopya.jpg"_s);
  click(again, u"RzBitBtn1"_s);
  EXPECT_TRUE(contentOf(dialogs.file) == large);
  QTimer::singleShot(0, &photo, [this] {
    EXPECT_TRUE(photo.isVisible() && photo.isModal());
    EXPECT_EQ(photo.windowTitle(), u"ÇAMAŞIR MAKİNESİ"_s);
    EXPECT_EQ(photo.size(), QSize(40, 30));
    photo.close();
  });
  click(again, u"btnShowImage"_s);
  dialogs.answer = 100;
  click(again, u"btnSil"_s);
  save(again);
  EXPECT_EQ(rows(u"select length(FT_RESIM) from foto"_s), u"0"_s);
}

TEST_F(SlipBadInput, ADamagedStoredPictureIsToldAndKeptUntilItIsReplaced) {
  save(filledSlip(u"100"_s));
  run(u"UPDATE foto SET FT_RESIM = 'bozuk resim'");
  run(u"UPDATE notlar SET SF_NOT = 'NOT'");
  const QByteArray damaged = "bozuk resim";
  EXPECT_ANY_THROW(openSlip(savedId(u"100"_s)));
  TfServisFis* slip = fServisFis;
  ASSERT_TRUE(slip != nullptr && slip->isVisible());
  EXPECT_EQ(slip->EditorMode, TfServisFis::Mode::Edit);
  EXPECT_EQ(note(slip)->text(), u"NOT"_s);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);

  click(slip, u"btnShowImage"_s);
  EXPECT_EQ(dialogs.texts.size(), 1);
  EXPECT_FALSE(photo.isVisible());
  dialogs.file = folder.filePath(u"kopya.jpg"_s);
  click(slip, u"RzBitBtn1"_s);
  EXPECT_EQ(QFileInfo(dialogs.file).size(), damaged.size());

  box(slip, u"TS_ACIKLAMA"_s)->setText(u"DEĞİŞTİ"_s);
  save(slip);
  QCoreApplication::processEvents();
  EXPECT_EQ(storedPicture(), digest(damaged)) << "what cannot be shown is not lost";
  EXPECT_EQ(rows(u"select TS_ACIKLAMA, SF_NOT from teknikservis, notlar"_s), u"DEĞİŞTİ|NOT"_s);
  EXPECT_FALSE(unhandled.isEmpty()) << "the window reads its slip anew after the save";
  unhandled.clear();

  const QByteArray good = pictureBytes("JPG");
  chooseFile(u"iyi.jpg"_s, good);
  click(slip, u"btnEkle"_s);
  save(slip);
  QCoreApplication::processEvents();
  EXPECT_EQ(storedPicture(), digest(good));
  for (const QString& empty : {u"''"_s, u"NULL"_s}) {
    run(u"UPDATE foto SET FT_RESIM = "_s + empty);
    ASSERT_NO_THROW(slip->Edit(savedId(u"100"_s)));
    dialogs.texts.clear();
    click(slip, u"btnShowImage"_s);
    EXPECT_TRUE(dialogs.texts.isEmpty());
  }
}

TEST_F(SlipBadInput, LinesTakeNoNumberThatTheirColumnsCannotHold) {
  enum { Number, Part, Quantity, Amount };
  const struct {
    int column;
    QString typed, stored;
  } cases[] = {{Quantity, u"123456789012345"_s, {}},       {Quantity, u"0,00001"_s, {}}, {Quantity, u"1,234.56"_s, {}},
               {Amount, u"1e308"_s, {}},                   {Amount, u"1.2.3"_s, {}},     {Amount, u"99999999999999999"_s, {}},
               {Amount, u"1.234,56"_s, u"~|~|1234,5600"_s}, {Number, u"99999999999"_s, {}}, {Number, u"1,5"_s, {}},
               {Quantity, u"-3"_s, u"~|-3,0000|~"_s}};
  int number = 100;
  for (const auto& one : cases) {
    SCOPED_TRACE(one.typed.toStdString());
    TfServisFis* slip = filledSlip(QString::number(++number));
    pages(slip)->setCurrentIndex(TfServisFis::LinesPage);
    lines(slip)->view()->setFocus();
    press(Qt::Key_Insert);
    for (int column = 0; column < one.column; ++column) press(Qt::Key_Return);
    type(one.typed);
    press(Qt::Key_F2);
    EXPECT_EQ(balloon(slip)->text() == u"Servis fiş kaydı tamamlandı."_s, !one.stored.isEmpty()) << qPrintable(balloon(slip)->text());
    EXPECT_FALSE(balloon(slip)->text().contains(u"MZ_"_s)) << qPrintable(balloon(slip)->text());
    EXPECT_EQ(rows(u"select MZ_SIRANO, MZ_ADET, MZ_TUTAR from malzeme, teknikservis where TS_ID = TS_NO_REF and TS_NO = '%1'"_s.arg(number)),
              one.stored);
    slip->parentWidget()->close();
  }
}
