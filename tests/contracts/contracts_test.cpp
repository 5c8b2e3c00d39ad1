#include "app/company_card.h"
#include "app/parameters.h"
#include "app/quendUtils.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/whole_file.h"
#include "contracts/contract_editor.h"
#include "contracts/contract_list.h"
#include "tests/cards/cards_fixture.h"
#include "toolkit/edits/edit_box.h"
#include "toolkit/edits/radio_group_edit.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/table_content.h"
#include "toolkit/report/report.h"
#include "toolkit/shell/command_updates.h"

namespace {

class ContractsTest : public CardsTest {
 protected:
  void SetUp() override {
    CardsTest::SetUp();
    run(u"INSERT INTO cari (CA_ID, CA_AD, CA_ILCE) VALUES (1, 'IŞIL KAYA', 'KONAK'), (2, 'ÇİĞDEM ÖZTÜRK', 'MODA')");
  }

  void add(const QString& number, const QString& more = u"1"_s) {
    run(u"INSERT INTO sozlesme (SOZ_NO, SOZ_CA_ID_REF, SOZ_BAS_TARIH, SOZ_BIT_TARIH, SOZ_HATIRLA_TARIH, SOZ_HATIRLA_DONEM, SOZ_STATU) "
        u"VALUES ('%1', %2, '2024-01-01', '2024-12-31', '2024-01-15', 7, 'AKTİF')"_s.arg(number, more));
  }
  /// Opens the list and works on it; what is left open is closed.
  void inList(const std::function<void()>& work) { within([this] { contracts.Giris(); }, contracts, work); }
  void inNew(const std::function<void()>& work) {
    inList([&] { within([this] { EXPECT_TRUE(runCommand(contracts, u"aEkle"_s)); }, editor, work); });
  }
  void inEditor(const std::function<void()>& work) {
    inList([&] { within([this] { EXPECT_TRUE(runCommand(contracts, u"aDuzelt"_s)); }, editor, work); });
  }
  void fill(const QString& customer = u"çiğdem öztürk"_s) {
    enter(editor, u"SOZ_AD"_s, u"klima bakımı"_s);
    enter(editor, u"TS_MUSTERI"_s, customer);
    enter(editor, u"BAS_TAR"_s, u"01.02.2024"_s);
    enter(editor, u"BIT_TAR"_s, u"31.01.2025"_s);
    enter(editor, u"HAT_TAR"_s, u"15.2.2024"_s);
  }
  std::string stored(const QString& statement) { return rows(statement).toStdString(); }
  QString text(const QString& box) { return editor.box(box)->text(); }
  std::string balloon() { return editor.findChild<Balloon*>()->text().toStdString(); }

  TfSozlesme contracts;
  TfSozlesmeEkle editor{contracts.queries()};
};

}  // namespace

TEST_F(ContractsTest, AContractIsAddedByTheKeyboard) {
  inNew([this] {
    EXPECT_EQ(text(u"SOZ_NO"_s), u"100"_s);
    EXPECT_EQ(text(u"DURUM"_s), u"AKTİF"_s);
    fill();
    enter(editor, u"TUTAR"_s, u"1250,12345"_s);
    enter(editor, u"MESAFE"_s, u"35"_s);
    enter(editor, u"HAT_SAAT"_s, u"0930"_s);
    enter(editor, u"MESAJ"_s, u"filtre değişimi"_s);
    auto* period = editor.findChild<RadioGroupEdit*>(u"DONEM"_s);
    EXPECT_EQ(period->itemIndex(), 0);
    period->findChildren<QAbstractButton*>()[4]->click();
    enter(editor, u"OZELKOD"_s, u"a1"_s);
    enter(editor, u"BIT_TAR"_s, u"31.01.2024"_s);
    press(editor, Qt::Key_F2);
    EXPECT_EQ(balloon(), "\"Sözleşme Bitiş Tarih\" Başlama tarihden önce olamaz.");
    enter(editor, u"BIT_TAR"_s, u"14.02.2025"_s);
    press(editor, Qt::Key_F2);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_EQ(contracts.grid()->content(false)->text(0, 2), u"ÇİĞDEM ÖZTÜRK"_s);
  });
  EXPECT_EQ(stored(u"select SOZ_NO, SOZ_AD, SOZ_CA_ID_REF, SOZ_BAS_TARIH, SOZ_BIT_TARIH, SOZ_TUTAR, SOZ_MESAFE, SOZ_HATIRLA_TARIH, "
                 u"SOZ_HATIRLA_SAAT, SOZ_HATIRLA_MESAJ, SOZ_HATIRLA_DONEM, SOZ_STATU, SOZ_OZELKOD from sozlesme"_s),
            "100|KLİMA BAKIMI|2|01.02.2024|14.02.2025|1250,12345|35|15.02.2024|09:30:00|FİLTRE DEĞİŞİMİ|9|AKTİF|A1");
}

TEST_F(ContractsTest, WhatIsMissingOrWrongIsToldAtItsBoxAndNothingIsLost) {
  inNew([this] {
    press(editor, Qt::Key_F2);
    EXPECT_EQ(balloon(), "\"Müşteri Adı\" alanı için değer girmelisiniz.");
    fill(u"KİMSE"_s);
    press(editor, Qt::Key_F2);
    EXPECT_TRUE(editor.box(u"TS_MUSTERI"_s)->hasError());
    EXPECT_EQ(text(u"TS_MUSTERI"_s), u"KİMSE"_s);
    enter(editor, u"TS_MUSTERI"_s, u"ışıl kaya"_s);
    enter(editor, u"HAT_SAAT"_s, u"2500"_s);
    QCoreApplication::processEvents();
    EXPECT_TRUE(editor.box(u"HAT_SAAT"_s)->editValue().isNull());
    EXPECT_FALSE(editor.box(u"HAT_SAAT"_s)->hasError());
    EXPECT_TRUE(editor.box(u"HAT_SAAT"_s)->line()->hasFocus());
    enter(editor, u"TUTAR"_s, u"1,250.5"_s);
    press(editor, Qt::Key_F2);
    EXPECT_TRUE(editor.box(u"TUTAR"_s)->hasError());
    EXPECT_EQ(text(u"TUTAR"_s), u"1,250.5"_s);
    enter(editor, u"TUTAR"_s, u"1.250,5"_s);
    enter(editor, u"HAT_TAR"_s, u"15.13.2024"_s);
    press(editor, Qt::Key_F2);
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(editor.result(), 0);
    EXPECT_EQ(text(u"HAT_TAR"_s), u"15.13.2024"_s);
    enter(editor, u"HAT_TAR"_s, u"15.12.2024"_s);
    enter(editor, u"SOZ_NO"_s, u"1234567890123456789"_s);
    EXPECT_EQ(text(u"SOZ_NO"_s).size(), 15);
    press(editor, Qt::Key_F2);
    EXPECT_FALSE(editor.isVisible());
  });
  EXPECT_EQ(stored(u"select SOZ_NO, SOZ_CA_ID_REF, SOZ_HATIRLA_SAAT, SOZ_HATIRLA_TARIH, SOZ_TUTAR from sozlesme"_s),
            "123456789012345|1|~|15.12.2024|1250,5");
}

TEST_F(ContractsTest, TheEllipsisProposesTheNextNumberOfThoseThatBeginAsTyped) {
  for (const QString& number : {u"121"_s, u"129"_s, u"212"_s, u"250"_s, u"AB"_s}) add(number);
  inNew([this] {
    EXPECT_EQ(text(u"SOZ_NO"_s), u"251"_s);
    for (const auto& [typed, proposed] : {std::pair(u"12"_s, u"130"_s), {u"7"_s, u"7"_s}, {u"AB"_s, u"AB"_s}}) {
      enter(editor, u"SOZ_NO"_s, typed);
      press(*editor.box(u"SOZ_NO"_s)->line(), Qt::Key_F5);
      EXPECT_EQ(text(u"SOZ_NO"_s), proposed);
      EXPECT_EQ(editor.box(u"SOZ_NO"_s)->line()->selectedText(), proposed);
    }
    press(editor, Qt::Key_F3);
  });
  EXPECT_EQ(stored(u"select count(*) from sozlesme"_s), "5");
}

TEST_F(ContractsTest, ANumberThatAnotherUserTookIsTold) {
  inNew([this] {
    add(u"100"_s);
    fill();
    press(editor, Qt::Key_F2);
    EXPECT_EQ(balloon(), "\"SÖZLEŞME NO\" alanı mükerrer değer kabul etmiyor.");
    EXPECT_EQ(text(u"SOZ_AD"_s), u"KLİMA BAKIMI"_s);
  });
}

TEST_F(ContractsTest, ACustomerWhoWasDeletedMeanwhileIsToldAndTheContractStays) {
  inNew([this] {
    fill();
    run(u"DELETE FROM cari WHERE CA_ID = 2");
    press(editor, Qt::Key_F2);
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(balloon(), "Seçilen müşterinin kartı bir başka kullanıcı tarafından silinmiş.");
  });
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ContractsTest, AfterOneConflictVersionsAreCheckedWithoutFalseAlarms) {
  add(u"100"_s);
  add(u"200"_s, u"2"_s);
  EXPECT_FALSE(contracts.qSozlesme.Options.CheckRowVersion);
  inEditor([this] {
    enter(editor, u"SOZ_AD"_s, u"ilk"_s);
    run(u"UPDATE sozlesme SET SOZ_MESAFE = 9 WHERE SOZ_NO = '100'");
    press(editor, Qt::Key_F2);  // nobody asks: not checked yet
    EXPECT_FALSE(editor.isVisible());
  });
  EXPECT_EQ(stored(u"select SOZ_AD, SOZ_MESAFE from sozlesme where SOZ_NO = '100'"_s), "İLK|9");
  inList([this] {
    within([this] { runCommand(contracts, u"aDuzelt"_s); }, editor, [this] {
      run(u"DELETE FROM sozlesme WHERE SOZ_NO = '100'");
      enter(editor, u"SOZ_AD"_s, u"silinen"_s);
      press(editor, Qt::Key_F2);  // gone
      enter(editor, u"SOZ_NO"_s, u"200"_s);
      dialogs.answers = {100, 2};
      press(editor, Qt::Key_F2);  // by the number it holds now it seems to be there; saving over it fails again
      press(editor, Qt::Key_F3);
    });
    EXPECT_TRUE(contracts.qSozlesme.Options.CheckRowVersion);
    contracts.grid()->setCurrentRow(1);
    for (const QString& name : {u"bir"_s, u"iki"_s})
      within([this] { runCommand(contracts, u"aDuzelt"_s); }, editor, [&] {
        enter(editor, u"SOZ_AD"_s, name);
        press(editor, Qt::Key_F2);
        EXPECT_FALSE(editor.isVisible());
      });
  });
  ASSERT_EQ(dialogs.shown.size(), 3);
  EXPECT_TRUE(dialogs.texts[0].contains(u"silinmiştir"_s));
  EXPECT_TRUE(dialogs.texts[1].contains(u"değiştirilmiştir"_s));
  EXPECT_EQ(stored(u"select SOZ_AD from sozlesme"_s), "İKİ");
}

TEST_F(ContractsTest, CommandsGoByTheirRights) {
  add(u"100"_s);
  const auto enabled = [this] {
    QStringList names;
    for (const QString& name : {u"aEkle"_s, u"aDuzelt"_s, u"aFisSil"_s, u"aGuncelle"_s, u"aYazdir"_s, u"actSozlesme"_s})
      if (contracts.command(name)->isEnabled()) names.append(name);
    return names.join(u' ');
  };
  inList([&] {
    updateCommands(&contracts);
    EXPECT_EQ(enabled(), u"aEkle aDuzelt aFisSil aGuncelle aYazdir actSozlesme"_s);
    DM->MySQL.Username = u"AYSE"_s;
    for (const QString& each : {u"F3 » Kayıt Ekle"_s, u"F4 » Kayıt Düzelt"_s, u"Sözleşme Yazdır"_s})
      workspace.Yetkitree.setStateIndex(u"Bakım Sözleşmesi\\"_s + each, Right::Unchecked);
    workspace.Yetkitree.setStateIndex(u"Bakım Sözleşmesi\\F6 » Kayıt Sil"_s, Right::Checked);
    updateCommands(&contracts);
    EXPECT_EQ(enabled(), u"aDuzelt aGuncelle aYazdir actSozlesme"_s);
  });
}

TEST_F(ContractsTest, TheLetterOfTheCurrentContractIsMerged) {
  TfSirket company;
  TfParametreler parameters;
  company.findChild<EditBox*>(u"SIRKET_ADI"_s)->setText(u"TORVANE {ŞİŞLİ}"_s);
  QuendUtil->programFolder = folder.path() + u'/';
  QDir(folder.path()).mkpath(u"rapor"_s);
  const auto write = [this](const QString& name, const QByteArray& bytes) { WholeFile::replace(folder.filePath(u"rapor/"_s + name), bytes); };
  // What the report shows, that page and print are made of.
  const auto letter = [this] {
    const ReportPages pages = workspace.frxReport1->prepare();
    QStringList words;
    for (const Primitive& each : pages.pages.at(0).primitives)
      if (const auto* mark = std::get_if<TextMark>(&each)) words += mark->text;
    return words.join(u'|').toStdString();
  };
  add(u"100"_s);
  add(u"200"_s, u"2"_s);
  run(u"UPDATE sozlesme SET SOZ_TUTAR = 12345.5, SOZ_HATIRLA_DONEM = 1 WHERE SOZ_NO = '200'");
  inList([&] {
    contracts.grid()->setCurrentRow(1);
    write(u"once.fr3"_s, R"(<report version="1"><page><band height="10"><text width="90">eski</text></band></page></report>)");
    workspace.frxReport1->load(folder.filePath(u"rapor/once.fr3"_s));
    ASSERT_TRUE(runCommand(contracts, u"actSozlesme"_s));
    EXPECT_EQ(letter(), "eski") << "a missing letter leaves the report that was there";
    write(u"bakim.fr3"_s, R"(<report version="1"><page><band height="10"><richtext name="Rich1" width="190"/></band></page></report>)");
    ASSERT_TRUE(runCommand(contracts, u"actSozlesme"_s));
    EXPECT_EQ(unhandled.size(), 1) << "a missing text is told";
    unhandled.clear();
    write(u"bakim.rtf"_s, R"({\rtf1\ansi\ansicpg1254 $musteri$ $FIRMA$\par $sozbastar$ $sozbittar$ $sozsure$ $tutar$ $donem$\par $firmatelefon$.})");
    ASSERT_TRUE(runCommand(contracts, u"actSozlesme"_s));
    EXPECT_EQ(letter(), "ÇİĞDEM ÖZTÜRK TORVANE {ŞİŞLİ}|01.01.2024 31.12.2024 365 GÜN 12345,5 TL Hergün|Tel: .");
    contracts.grid()->setCurrentRow(0);
    ASSERT_TRUE(runCommand(contracts, u"actSozlesme"_s));
    EXPECT_EQ(letter(), "IŞIL KAYA TORVANE {ŞİŞLİ}|01.01.2024 31.12.2024 365 GÜN  TL $donem$|Tel: .");
  });
  EXPECT_TRUE(unhandled.isEmpty());
  EXPECT_TRUE(dialogs.shown.empty()) << "without a printer nothing is told";
}

TEST_F(ContractsTest, DeletingAsksAndALostServerIsToldByTheApplication) {
  add(u"100"_s);
  add(u"200"_s);
  inList([this] {
    dialogs.answers = {2, 100};
    press(contracts, Qt::Key_F6);
    EXPECT_EQ(stored(u"select count(*) from sozlesme"_s), "2");
    press(contracts, Qt::Key_F6);
    EXPECT_EQ(stored(u"select SOZ_NO from sozlesme"_s), "200");
    EXPECT_EQ(dialogs.texts.back(), u"Seçilen bakım sözleşmesi silinecek onaylıyor musunuz"_s);
    cutConnection();
    dialogs.answers = {100};
    press(contracts, Qt::Key_F6);
    EXPECT_EQ(unhandled.size(), 1);
    EXPECT_EQ(contracts.grid()->content(false)->rowCount(), 1);
    unhandled.clear();
  });
}
