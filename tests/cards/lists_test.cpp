#include "app/editors/qcx_db_editors.h"
#include "base/data/value.h"
#include "base/program_paths.h"
#include "service/fservisfis_unit.h"
#include "tests/cards/cards_fixture.h"
#include "tests/support/failure_at_removal.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_preview.h"
#include "toolkit/grid/grid_view.h"
#include "toolkit/shell/command_updates.h"

#include <utility>

using testing::ElementsAre;

namespace {

constexpr int confirm = 100;

class ListsTest : public CardsTest {
 protected:
  /// Types into the new-item row as a user does: its first cell, then on by Enter.
  static void typeRow(InPlaceList& list, const QStringList& texts) {
    QTest::keyClick(list.grid()->view(), Qt::Key_Insert);
    for (const QString& text : texts) {
      for (const QChar letter : text) type(QApplication::focusWidget(), letter);
      press(*QApplication::focusWidget(), Qt::Key_Return);
    }
  }
  void inDevicesOf(int customer, const std::function<void()>& work) {
    within([this, customer] { customerDevices.Giris(customer); }, customerDevices, work);
  }
  void inTypes(const std::function<void()>& work) {
    within([this] { serviceTypes.Giris(); }, serviceTypes, work);
  }
};

}  // namespace

TEST_F(ListsTest, DevicesOfACustomerAreTypedInPlace) {
  run(u"INSERT INTO cari (CA_ID, CA_AD) VALUES (1, 'AYŞE & OĞLU'), (2, 'B')");
  run(u"INSERT INTO caricihaz (CH_CA_ID, CH_MODEL, CH_SERI) VALUES (2, 'OCAK', 'BİR')");
  within([this] { customers.Giris(); }, customers, [this] {
    within([this] { EXPECT_TRUE(runCommand(customers, u"aCihaz"_s)); }, customerDevices, [this] {
      EXPECT_EQ(customerDevices.findChild<QLabel*>(u"sheet"_s)->text(), u"AYŞE & OĞLU"_s);
      EXPECT_EQ(customerDevices.qmCihaz.RecordCount(), 0);
      typeRow(customerDevices, {u"çğıişöü mix-1"_s, u"sıra iki"_s});
      EXPECT_TRUE(customerDevices.grid()->postEdits());
    });
  });
  EXPECT_EQ(rows(u"select CH_CA_ID, CH_MODEL, CH_SERI from caricihaz where CH_CA_ID = 1"_s), u"1|ÇĞIİŞÖÜ MİX-1|SIRA İKİ"_s);
}

TEST_F(ListsTest, SerialOfAnotherCustomerIsRefusedAndTheRowStaysInEditing) {
  run(u"INSERT INTO cari (CA_ID, CA_AD) VALUES (1, 'A'), (2, 'B')");
  run(u"INSERT INTO caricihaz (CH_CA_ID, CH_MODEL, CH_SERI) VALUES (2, 'OCAK', 'BİR')");
  inDevicesOf(1, [this] {
    typeRow(customerDevices, {u"fırın"_s, u"bir"_s});
    EXPECT_FALSE(customerDevices.grid()->postEdits());
    ASSERT_FALSE(dialogs.shown.empty());
    EXPECT_EQ(dialogs.shown.back().text, u"\"SERİ NO\" alanı mükerrer değer kabul etmiyor."_s);
    EXPECT_TRUE(dialogs.shown.back().instruction.isEmpty());
    EXPECT_EQ(customerDevices.qmCihaz.state(), QueryState::Insert);
    EXPECT_EQ(customerDevices.qmCihaz.FieldByName(u"CH_MODEL"_s).asText(), u"FIRIN"_s);
    customerDevices.done(0);
    EXPECT_TRUE(customerDevices.isVisible()) << "a row that cannot be written keeps the list open";
    customerDevices.qmCihaz.FieldByName(u"CH_SERI"_s).set(u"İKİ"_s);
    EXPECT_TRUE(customerDevices.grid()->postEdits());
  });
  EXPECT_EQ(rows(u"select CH_CA_ID, CH_MODEL, CH_SERI from caricihaz order by CH_ID"_s), u"2|OCAK|BİR;1|FIRIN|İKİ"_s);
}

TEST_F(ListsTest, CellThatWasRefusedKeepsTheListOpen) {
  serviceTypes.qServisTip.Open();
  inTypes([this] {
    QTest::keyClick(serviceTypes.grid()->view(), Qt::Key_Insert);
    const QPointer<QLineEdit> editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    for (const QString& refused : {u"日"_s, u"bakım ve onarım ve kurulum ve eğitim"_s}) {
      ASSERT_TRUE(editor);
      editor->selectAll();
      paste(editor, refused);
      serviceTypes.done(0);
      EXPECT_TRUE(serviceTypes.isVisible());
      EXPECT_TRUE(serviceTypes.findChild<Balloon*>()->text().contains(u"\"SERVİS ADI\""_s));
      serviceTypes.findChild<Balloon*>()->hide();
      EXPECT_EQ(QApplication::focusWidget(), editor.data());
      EXPECT_EQ(editor->text(), refused) << "nothing of it is cut";
    }
    editor->setText(u"bakım"_s);
    serviceTypes.done(0);
    EXPECT_FALSE(serviceTypes.isVisible());
  });
  EXPECT_EQ(rows(u"select * from servistip"_s), u"BAKIM"_s);
}

TEST_F(ListsTest, ClosingWritesTheRowInEditAndTheNavigatorDeletesWithoutAQuestion) {
  run(u"INSERT INTO cari (CA_ID, CA_AD) VALUES (1, 'A')");
  run(u"INSERT INTO caricihaz (CH_CA_ID, CH_MODEL, CH_SERI) VALUES (1, 'OCAK', 'BİR')");
  inDevicesOf(1, [this] {
    customerDevices.grid()->setCurrentRow(0);
    customerDevices.grid()->findChild<QToolButton*>(u"delete"_s)->click();
    EXPECT_EQ(rows(u"select count(*) from caricihaz"_s), u"0"_s);
    typeRow(customerDevices, {u"tablet"_s});
    customerDevices.done(0);
    EXPECT_FALSE(customerDevices.isVisible());
  });
  EXPECT_TRUE(dialogs.shown.empty());
  EXPECT_EQ(rows(u"select CH_CA_ID, CH_MODEL, CH_SERI from caricihaz"_s), u"1|TABLET|~"_s);
}

TEST_F(ListsTest, RowInEditOutlivesTheServer) {
  run(u"INSERT INTO cari (CA_ID, CA_AD) VALUES (1, 'A')");
  run(u"INSERT INTO caricihaz (CH_CA_ID, CH_MODEL, CH_SERI) VALUES (1, 'OCAK', 'BİR')");
  inDevicesOf(1, [this] {
    typeRow(customerDevices, {u"tablet"_s});
    cutConnection();
    EXPECT_FALSE(customerDevices.grid()->postEdits());
    EXPECT_EQ(customerDevices.qmCihaz.state(), QueryState::Insert);
    customerDevices.grid()->findChild<QToolButton*>(u"cancel"_s)->click();
    customerDevices.grid()->setCurrentRow(0);
    customerDevices.grid()->findChild<QToolButton*>(u"delete"_s)->click();
    EXPECT_EQ(customerDevices.qmCihaz.RecordCount(), 1) << "what the server still has stays shown";
    EXPECT_EQ(std::exchange(unhandled, {}).size(), 2);
    customerDevices.done(0);
    EXPECT_FALSE(customerDevices.isVisible());
  });
  EXPECT_EQ(rows(u"select CH_MODEL from caricihaz"_s), u"OCAK"_s);
}

TEST_F(ListsTest, ServiceTypesStayOpenAndRefuseAWordTwice) {
  run(u"INSERT INTO servistip (SERVIS_AD) VALUES ('ATÖLYE')");
  serviceTypes.qServisTip.Open();
  inTypes([this] {
    typeRow(serviceTypes, {u"yerinde bakım"_s});
    EXPECT_TRUE(serviceTypes.grid()->postEdits());
    typeRow(serviceTypes, {u"atölye"_s});
    EXPECT_FALSE(serviceTypes.grid()->postEdits());
    EXPECT_EQ(dialogs.texts.back(), u"\"SERVİS ADI\" alanı mükerrer değer kabul etmiyor."_s);
    EXPECT_EQ(serviceTypes.qServisTip.state(), QueryState::Insert);
    serviceTypes.qServisTip.Cancel();
  });
  EXPECT_TRUE(serviceTypes.qServisTip.Active());
  EXPECT_EQ(rows(u"select * from servistip order by SERVIS_AD"_s), u"ATÖLYE;YERİNDE BAKIM"_s);
}

TEST_F(ListsTest, CatalogueIsDeletedFromButNotAddedTo) {
  run(u"INSERT INTO cihaz (C_AD, C_MARKA) VALUES ('OCAK', 'A'), ('FIRIN', 'B')");
  within([this] { devices.Giris(); }, devices, [this] {
    EXPECT_THROW(devices.command(u"aEkle"_s), Exception);
    EXPECT_THROW(devices.command(u"aDuzelt"_s), Exception);
    press(*devices.grid()->view(), Qt::Key_Return);
    dialogs.answers = {confirm};
    EXPECT_TRUE(runCommand(devices, u"aFisSil"_s));
    EXPECT_EQ(dialogs.texts.back(), u"Seçilen cihaz kartı silinecek onaylıyor musunuz?"_s);
    EXPECT_THAT(shown(devices.qCihaz, u"C_AD"_s), ElementsAre(u"FIRIN"_s));
    const FailureAtRemoval failure(devices.qCihaz);
    dialogs.answers = {confirm};
    EXPECT_TRUE(runCommand(devices, u"aFisSil"_s));
    EXPECT_EQ(dialogs.texts.back(), u"Seçilen cihaz kartı silinemedi!"_s);
    EXPECT_THAT(shown(devices.qCihaz, u"C_AD"_s), ElementsAre(u"FIRIN"_s)) << "read anew";
  });
  EXPECT_EQ(rows(u"select C_AD from cihaz"_s), u"FIRIN"_s);
}

TEST_F(ListsTest, FirmsAreAddedAndChanged) {
  run(u"INSERT INTO disservis (DS_AD) VALUES ('ESKİ')");
  within([this] { firms.Giris(); }, firms, [this] {
    within([this] { press(firms, Qt::Key_F3); }, firmEditor, [this] {
      enter(firmEditor, u"DS_AD"_s, u"iş servis"_s);
      QTest::keyClicks(firmEditor.box(u"DS_ADRES"_s)->line(), u"SOKAK"_s);  // not left before F2
      press(firmEditor, Qt::Key_F2);
      EXPECT_EQ(firmEditor.result(), 6);
    });
    EXPECT_EQ(firms.grid()->currentRow(), 1);
    within([this] { press(firms, Qt::Key_F4); }, firmEditor, [this] {
      EXPECT_EQ(firmEditor.box(u"DS_ADRES"_s)->text(), u"SOKAK"_s);
      enter(firmEditor, u"DS_FAKS"_s, u"1"_s);
      press(firmEditor, Qt::Key_F3);
      EXPECT_EQ(firmEditor.result(), 7);
    });
    EXPECT_EQ(firms.qDisServis.state(), QueryState::Browse);
    dialogs.answers = {confirm};
    EXPECT_TRUE(runCommand(firms, u"aFisSil"_s));
    EXPECT_EQ(dialogs.texts.back(), u"Seçilen dış servis kartı silinecek onaylıyor musunuz?"_s);
  });
  EXPECT_EQ(rows(u"select DS_AD, DS_ADRES from disservis"_s), u"ESKİ|~"_s);
}

TEST_F(ListsTest, FirmThatCannotBeWrittenKeepsWhatWasTypedAndIsToldOfInTheSlipsWords) {
  run(u"INSERT INTO disservis (DS_AD) VALUES ('ESKİ')");
  ASSERT_EQ(fServisFis, nullptr);
  within([this] { firms.Giris(); }, firms, [this] {
    within([this] { press(firms, Qt::Key_F4); }, firmEditor, [this] {
      run(u"DELETE FROM disservis");
      enter(firmEditor, u"DS_FAKS"_s, u"1"_s);
      press(firmEditor, Qt::Key_F2);
      ASSERT_EQ(dialogs.shown.size(), 1u);
      EXPECT_TRUE(dialogs.shown[0].text.contains(u"silinmiştir"_s));
      run(u"INSERT INTO disservis (DS_ID, DS_AD) VALUES (%1, 'ESKİ')"_s.arg(firms.qDisServis.FieldByName(u"DS_ID"_s).asInteger()));
      press(firmEditor, Qt::Key_F2);
      EXPECT_FALSE(firmEditor.isVisible()) << "what was typed is still there to be saved";
    });
    EXPECT_EQ(rows(u"select DS_FAKS from disservis"_s), u"1"_s);
    EXPECT_EQ(firms.qDisServis.state(), QueryState::Browse);
    within([this] { press(firms, Qt::Key_F3); }, firmEditor, [this] {
      enter(firmEditor, u"DS_ADRES"_s, u"sokak"_s);
      press(firmEditor, Qt::Key_F2);
      ASSERT_TRUE(firmEditor.isVisible());
      EXPECT_EQ(firmEditor.findChild<Balloon*>()->text(), u"\"DIŞ SERVİS ADI\" alanı boş bırakılamaz."_s);
      EXPECT_EQ(firmEditor.box(u"DS_ADRES"_s)->text(), u"SOKAK"_s);
    });

    cutConnection();
    within([this] { press(firms, Qt::Key_F4); }, firmEditor, [this] {
      enter(firmEditor, u"DS_FAKS"_s, u"1"_s);
      press(firmEditor, Qt::Key_F2);
    });
    EXPECT_TRUE(unhandled.isEmpty());
    within([this] { press(firms, Qt::Key_F3); }, firmEditor, [this] {
      enter(firmEditor, u"DS_AD"_s, u"x"_s);
      press(firmEditor, Qt::Key_F2);
      EXPECT_EQ(std::exchange(unhandled, {}).size(), 1) << "a new card's failure goes up as it is";
      EXPECT_TRUE(firmEditor.isVisible());
      EXPECT_EQ(firmEditor.box(u"DS_AD"_s)->text(), u"X"_s);
    });
    EXPECT_EQ(firms.qDisServis.RecordCount(), 1);
  });
}

TEST_F(ListsTest, FirmIsChangedByTheRightToAdd) {
  run(u"INSERT INTO disservis (DS_AD) VALUES ('ESKİ')");
  within([this] { firms.Giris(); }, firms, [this] {
    const qsizetype before = contentOf(logFileName()).size();
    DM->MySQL.Username = u"OTHER"_s;
    updateCommands(&firms);
    DM->MySQL.Username = u"QUEND"_s;
    for (const QString& name : {u"aEkle"_s, u"aDuzelt"_s, u"aFisSil"_s, u"aYazdir"_s}) EXPECT_FALSE(firms.command(name)->isEnabled());
    EXPECT_TRUE(firms.command(u"aGuncelle"_s)->isEnabled());
    // Every path that was asked for and is not in the tree leaves an entry.
    const QString asked = QString::fromUtf8(contentOf(logFileName()).mid(before));
    EXPECT_EQ(asked.count(u"Kartlar\\Dış Servis Kartları\\F3 » Kayıt Ekle"_s), 2);
    EXPECT_FALSE(asked.contains(u"F4 » Kayıt Düzelt"_s));
  });
}

// The sheet lands in the current folder, and the one beside the program is opened, wherever that is.
TEST_F(ListsTest, CustomersGoToPaperAndToASheet) {
  putScript(folder.filePath(u"xdg-open"_s), "printf %s \"$1\" >opening; mv opening opened\n");
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", folder.path().toUtf8() + ':' + path);
  run(u"INSERT INTO cari (CA_AD) VALUES ('AYŞE IŞIK'), ('CEM')");
  within([this] { customers.Giris(); }, customers, [this] {
    QTimer preview;
    connectGuarded(&preview, &QTimer::timeout, &customers, [&] {
      auto* shown = qobject_cast<GridPreview*>(QApplication::activeModalWidget());
      if (shown == nullptr) return;
      preview.stop();
      EXPECT_EQ(shown->windowTitle(), u"Önizleme"_s);
      EXPECT_EQ(shown->pages().rowsOn(0).second, 2);
      shown->findChild<QAction*>(u"excel"_s)->trigger();
      shown->reject();
    });
    preview.start(5);
    press(customers, Qt::Key_F9);
    EXPECT_FALSE(preview.isActive());
  });
  EXPECT_GT(QFile(u"CariHesaplar.xls"_s).size(), 1000);
  EXPECT_TRUE(QTest::qWaitFor([] { return contentOf(u"opened"_s) == (programFolder() + u"CariHesaplar.xls"_s).toUtf8(); }));
  qputenv("PATH", path);
}

// What the cards hold is what a new slip offers and copies.
TEST_F(ListsTest, SlipCopiesFromTheCards) {
  within([this] { customers.Giris(); }, customers, [this] {
    within([this] { EXPECT_TRUE(runCommand(customers, u"aEkle"_s)); }, customerEditor, [this] {
      enter(customerEditor, u"CA_AD"_s, u"ayşe ışık"_s);
      enter(customerEditor, u"CA_CEP"_s, u"532"_s);
      press(customerEditor, Qt::Key_F2);
    });
    within([this] { EXPECT_TRUE(runCommand(customers, u"aCihaz"_s)); }, customerDevices,
           [this] { typeRow(customerDevices, {u"dizüstü"_s, u"sn-1"_s}); });
  });
  run(u"INSERT INTO cihaz (C_AD, C_MARKA, C_TURU) VALUES ('OCAK', 'M', 'T')");
  ports().newSlip();
  const auto text = [](const QString& column) { return fServisFis->findChild<EditBox*>(column)->text(); };
  fServisFis->findChild<EditBox*>(u"TS_C_RAFNO"_s)->setText(u"SN-1"_s);
  fServisFis->findChild<EditBox*>(u"TS_C_RAFNO"_s)->pressButton(1);
  EXPECT_EQ(text(u"TS_MUSTERI"_s), u"AYŞE IŞIK"_s);
  EXPECT_EQ(text(u"TS_CEP"_s), u"532"_s);
  EXPECT_EQ(text(u"TS_C_AD"_s), u"DİZÜSTÜ"_s);
}
