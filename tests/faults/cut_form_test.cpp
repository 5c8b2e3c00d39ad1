// The server goes at every packet of a save of the real form.
#include "base/data/value.h"
#include "base/log_file.h"
#include "base/program_paths.h"
#include "service/slip_fields.h"
#include "service/slip_picture_page.h"
#include "tests/faults/cutting_proxy.h"
#include "tests/faults/screen_slip.h"
#include "tests/service/slip_form_fixture.h"
#include "tests/support/picture.h"

const QString saved = u"Servis fiş kaydı tamamlandı."_s;

class CutFormTest : public SlipFormTest, public testing::WithParamInterface<bool> {
 protected:
  void SetUp() override {
    SlipFormTest::SetUp();
    connectThrough();
  }

  void connectThrough() {
    DM->MySQL.Close();
    DM->MySQL.Server = u"127.0.0.1"_s;
    DM->MySQL.Port = proxy.port();
    DM->MySQL.Connect();
  }

  /// A slip with something in each of its parts, open and not saved: a new one, or one that stands in the database.
  TfServisFis* typedSlip() {
    database.emptyTables();
    TfServisFis* slip = filledSlip(u"100"_s);
    if (!GetParam()) {
      save(slip);
      QCoreApplication::processEvents();
      box(slip, u"TS_MUSTERI"_s)->setText(u"DEĞİŞTİ"_s);
    }
    box(slip, u"TS_SERVIS_TUTAR"_s)->setText(u"12,50"_s);
    box(slip, u"TS_RANDEVU"_s)->setText(u"05.03.2026"_s);
    slip->setOutsideService({u"FİRMA"_s, u"01.02.2026"_s, {}, u"BİLGİ"_s, 3}, u"ipucu"_s);
    addLine(slip, u"MOTOR"_s, u"2"_s, u"12,50"_s);
    addLine(slip, u"KART"_s, u"1"_s, u"7"_s);
    note(slip)->setText(u"not \\ 'ş'"_s);
    slip->findChild<SlipPicturePage*>()->setBytes(picture);
    return slip;
  }

  static QStringList shown(TfServisFis* slip) {
    QStringList all;
    for (const SlipField& field : slipFields()) all.append(field.column + u'=' + slip->text(field.column));
    for (int row = 0; row < slip->qMalzeme.RecordCount(); ++row)
      for (const QString& column : {u"MZ_PARCA_ADI"_s, u"MZ_ADET"_s, u"MZ_TUTAR"_s})
        all.append(slip->qMalzeme.valueAt(row, slip->qMalzeme.fieldIndex(column)).toText());
    const OutsideService& outside = slip->outsideService();
    all += {note(slip)->text(), outside.firm, outside.exitDate, outside.note, QString::number(outside.deliveryDays), slip->windowTitle(),
            QString::number(int(slip->EditorMode)), QString::fromLatin1(slip->findChild<SlipPicturePage*>()->bytes().toBase64())};
    return all;
  }

  CuttingProxy proxy{qEnvironmentVariable("KVTK_TEST_SERVER"), 3313};
  const QByteArray picture = pictureBytes("JPG");
};

TEST_P(CutFormTest, TheScreenKeepsAllAndOneLineTells) {
  TfServisFis* uncut = typedSlip();
  proxy.arm(0, Cut::Reset);
  save(uncut);
  const int packets = proxy.packets();
  ASSERT_GT(packets, 14);
  const QStringList whole = storedRows(database.connection());
  EXPECT_EQ(whole.size(), 5);
  uncut->parentWidget()->close();

  constexpr Cut kinds[] = {Cut::BeforePacket, Cut::WithinPacket, Cut::Reset};
  int writtenCuts = 0;
  for (int packet = 1; packet <= packets; ++packet) {
    SCOPED_TRACE("packet " + std::to_string(packet) + " of " + std::to_string(packets));
    TfServisFis* slip = typedSlip();
    const QStringList typed = shown(slip);
    const QStringList before = storedRows(database.connection());
    const qint64 id = TestDatabase::idOf(DM->MySQL);
    const qsizetype linesBefore = contentOf(logFileName()).count('\n');
    dialogs.texts.clear();
    balloon(slip)->hide();
    proxy.arm(packet, kinds[size_t(packet + (GetParam() ? 1 : 0)) % std::size(kinds)]);
    save(slip);
    ASSERT_TRUE(proxy.hasCut());
    ASSERT_TRUE(waitForEnd(database.connection(), id));
    // What nobody handles is logged and shown by the program's own handler, which the test stands in for.
    ASSERT_EQ(contentOf(logFileName()).count('\n') - linesBefore + unhandled.size(), 1);
    unhandled.clear();
    EXPECT_FALSE(DM->MySQL.InTransaction());

    const QStringList stored = storedRows(database.connection());
    const bool isTold = balloon(slip)->text() == saved;
    const bool isWritten = stored == whole;
    ASSERT_TRUE(isWritten || stored == before);
    ASSERT_TRUE(isWritten || !isTold) << "what was told as saved is saved";
    writtenCuts += isWritten ? 1 : 0;
    if (!isTold) {
      ASSERT_EQ(shown(slip), typed);
    }

    if (!isWritten) {
      save(slip);
      ASSERT_EQ(storedRows(database.connection()), before) << "no statement may connect anew by itself";
      unhandled.clear();
      // Another workstation, and this one when it is connected again, write what was not saved.
      run(u"INSERT INTO teknikservis (TS_NO) VALUES ('900')");
      run(u"DELETE FROM teknikservis WHERE TS_NO = '900'");
      run(u"UPDATE teknikservis SET TS_NO = TS_NO");
    }
    connectThrough();
    if (!isWritten) {
      balloon(slip)->hide();
      save(slip);
      ASSERT_EQ(balloon(slip)->text(), saved);
      ASSERT_EQ(storedRows(database.connection()), whole);
    }
    slip->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  // At the answer to the COMMIT, and while the look-ups are read anew; every other cut came before.
  EXPECT_GT(writtenCuts, 1);
  EXPECT_GT(packets - writtenCuts, 14);
}

INSTANTIATE_TEST_SUITE_P(Saves, CutFormTest, testing::Bool(), [](const auto& one) { return one.param ? "New" : "Existing"; });
