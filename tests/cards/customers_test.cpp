#include "app/editors/qcx_db_editors.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/program_paths.h"
#include "tests/cards/cards_fixture.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/grid_view.h"
#include "toolkit/shell/command_updates.h"

#include <algorithm>
#include <utility>

using testing::ElementsAre;

namespace {

const QString deletedText =
    u"Değişiklik yapmakta olduğunuz kaydın bilgileri siz  işlem yaparken bir başka kullanıcı tarafından silinmiştir..\r\n\r\n"
    u"İşleminiz bu nedenle gerçekleştirilemiyor."_s;
constexpr int confirm = 100;

class CustomersTest : public CardsTest {
 protected:
  void SetUp() override {
    CardsTest::SetUp();
    run(u"INSERT INTO cari (CA_AD, CA_CEP) VALUES ('AYŞE IŞIK', '532'), ('BARIŞ ÇELİK', NULL), ('CEM İNCE', '533')");
  }

  void inList(const std::function<void()>& work) {
    within([this] { customers.Giris(); }, customers, work);
  }
  /// Edits the card under the cursor.
  void inEditor(const std::function<void()>& work) {
    within([this] { EXPECT_TRUE(runCommand(customers, u"aDuzelt"_s)); }, customerEditor, work);
  }
  void save() { customerEditor.aKaydet->trigger(); }
  /// Gives up, so that nothing of the editor is left.
  void giveUp() {
    customerEditor.aVazgec->trigger();
    EXPECT_FALSE(customerEditor.isVisible());
    EXPECT_EQ(customers.qCari.state(), QueryState::Browse);
  }
  Balloon* balloon() { return customerEditor.findChild<Balloon*>(); }
  QString box(const QString& column) { return customerEditor.box(column)->text(); }
};

}  // namespace

TEST_F(CustomersTest, CardIsTypedInItsOrderInTurkishCapitals) {
  inList([this] {
    EXPECT_EQ(customers.grid()->currentRow(), 0);
    within([this] { EXPECT_TRUE(runCommand(customers, u"aEkle"_s)); }, customerEditor, [this] {
      for (const QString& column : {u"CA_AD"_s, u"CA_UNVAN"_s, u"CA_NO"_s, u"CA_ADRES"_s, u"CA_ILCE"_s, u"CA_YETKILI"_s, u"CA_TEL"_s,
                                    u"CA_TEL2"_s, u"CA_CEP"_s, u"CA_EPOSTA"_s, u"CA_OZELKOD1"_s, u"CA_OZELKOD2"_s}) {
        QWidget* focused = QApplication::focusWidget();
        ASSERT_EQ(focused, customerEditor.box(column)->line()) << qPrintable(column);
        EXPECT_EQ(customerEditor.box(column)->width(), column == u"CA_AD"_s || column == u"CA_ADRES"_s || column == u"CA_UNVAN"_s ? 456 : 225);
        type(focused, u"dilı"_s + column.last(2).toLower());
        press(*focused, Qt::Key_Return);
      }
      EXPECT_EQ(customerEditor.box(u"CA_UNVAN"_s)->width(), 225);
      press(customerEditor, Qt::Key_F2);
      EXPECT_FALSE(customerEditor.isVisible());
      EXPECT_EQ(customerEditor.result(), CardEditor::Saved);
    });
    EXPECT_EQ(customers.grid()->currentRow(), 3);
    EXPECT_TRUE(std::ranges::any_of(customers.grid()->findChildren<QLabel*>(), [](const QLabel* label) { return label->text() == u"4 satır"_s; }));
  });
  EXPECT_EQ(rows(u"select CA_AD, CA_UNVAN, CA_NO, CA_OZELKOD2 from cari where CA_ID > 3 and CA_AD like 'D%'"_s), u"DİLIAD|DİLIAN|DİLINO|DİLID2"_s);
}

TEST_F(CustomersTest, GivingUpLeavesNothing) {
  inList([this] {
    within([this] { EXPECT_TRUE(runCommand(customers, u"aEkle"_s)); }, customerEditor, [this] {
      enter(customerEditor, u"CA_AD"_s, u"x"_s);
      customerEditor.box(u"CA_UNVAN"_s)->line()->insert(u"Y"_s);
      press(customerEditor, Qt::Key_Escape);
      EXPECT_EQ(customerEditor.result(), 2);
    });
    EXPECT_EQ(customers.qCari.RecordCount(), 3);
    EXPECT_EQ(customers.grid()->currentRow(), 0);
    inEditor([this] {
      QTest::keyClicks(customerEditor.box(u"CA_AD"_s)->line(), u"TYPED AND NOT LEFT"_s);
      press(customerEditor, Qt::Key_F3);
    });
    EXPECT_EQ(customers.qCari.state(), QueryState::Browse);
    EXPECT_EQ(shown(customers.qCari, u"CA_AD"_s).first(), u"AYŞE IŞIK"_s);
  });
  EXPECT_EQ(rows(u"select count(*) from cari where CA_AD not in ('AYŞE IŞIK', 'BARIŞ ÇELİK', 'CEM İNCE')"_s), u"0"_s);
}

TEST_F(CustomersTest, NameThatIsTakenIsToldAtItsBoxAndCanBeChanged) {
  inList([this] {
    within([this] { EXPECT_TRUE(runCommand(customers, u"aEkle"_s)); }, customerEditor, [this] {
      enter(customerEditor, u"CA_AD"_s, u"derya"_s);
      enter(customerEditor, u"CA_NO"_s, u"7"_s);
      run(u"INSERT INTO cari (CA_AD) VALUES ('DERYA')");
      save();
      EXPECT_EQ(balloon()->text(), u"\"MÜŞTERİ ADI\" alanı mükerrer değer kabul etmiyor."_s);
      EXPECT_TRUE(customerEditor.box(u"CA_AD"_s)->line()->hasFocus());
      ASSERT_TRUE(customerEditor.isVisible());
      EXPECT_EQ(box(u"CA_NO"_s), u"7"_s);
      enter(customerEditor, u"CA_AD"_s, u"derya 2"_s);
      save();
      EXPECT_FALSE(customerEditor.isVisible());
    });
  });
  EXPECT_TRUE(dialogs.shown.empty());
  EXPECT_EQ(rows(u"select CA_NO from cari where CA_AD like 'DERYA%' order by CA_AD"_s), u"~;7"_s);
}

TEST_F(CustomersTest, EmptyNameAndUnstorableLetter) {
  inList([this] {
    within([this] { EXPECT_TRUE(runCommand(customers, u"aEkle"_s)); }, customerEditor, [this] {
      enter(customerEditor, u"CA_NO"_s, u"9"_s);
      customerEditor.box(u"CA_UNVAN"_s)->line()->setFocus();
      type(customerEditor.box(u"CA_UNVAN"_s)->line(), u"日"_s);
      const auto isTold = [this] { return balloon()->text().contains(u"日"_s) && balloon()->text().contains(u"\"CARİ ÜNVAN\""_s); };
      save();
      EXPECT_TRUE(customerEditor.isVisible());
      EXPECT_TRUE(isTold()) << qPrintable(balloon()->text());
      balloon()->hide();
      customerEditor.box(u"CA_NO"_s)->line()->setFocus();
      EXPECT_TRUE(isTold()) << "on leaving the box as well";
      customerEditor.box(u"CA_UNVAN"_s)->line()->setFocus();
      customerEditor.box(u"CA_UNVAN"_s)->line()->selectAll();
      press(*customerEditor.box(u"CA_UNVAN"_s)->line(), Qt::Key_Delete);
      save();
      EXPECT_FALSE(customerEditor.isVisible());
    });
  });
  EXPECT_EQ(rows(u"select CA_AD, CA_UNVAN from cari where CA_NO = '9'"_s), u"~|~"_s);
}

TEST_F(CustomersTest, CardDeletedMeanwhile) {
  inList([this] {
    inEditor([this] {
      run(u"DELETE FROM cari WHERE CA_AD = 'AYŞE IŞIK'");
      enter(customerEditor, u"CA_NO"_s, u"1"_s);
      save();
      EXPECT_THAT(dialogs.texts, ElementsAre(deletedText));
      ASSERT_TRUE(customerEditor.isVisible());
      // With another customer's name in the box the card counts as changed: meant.
      enter(customerEditor, u"CA_AD"_s, u"cem ince"_s);
      save();
      ASSERT_EQ(dialogs.shown.size(), 2u);
      EXPECT_TRUE(dialogs.shown.back().text.contains(u"değiştirilmiştir"_s));
      EXPECT_EQ(customers.qCari.state(), QueryState::Edit);
      giveUp();
    });
  });
}

TEST_F(CustomersTest, CardChangedMeanwhile) {
  inList([this] {
    inEditor([this] {
      run(u"UPDATE cari SET CA_TEL = '0312' WHERE CA_AD = 'AYŞE IŞIK'");
      enter(customerEditor, u"CA_NO"_s, u"1"_s);
      save();  // cancelled
      ASSERT_TRUE(customerEditor.isVisible());
      EXPECT_EQ(rows(u"select CA_NO from cari where CA_AD = 'AYŞE IŞIK'"_s), u"~"_s);
      EXPECT_EQ(box(u"CA_NO"_s), u"1"_s);
      dialogs.answers = {confirm};
      save();
      EXPECT_FALSE(customerEditor.isVisible());
    });
    EXPECT_EQ(rows(u"select CA_NO, CA_TEL from cari where CA_AD = 'AYŞE IŞIK'"_s), u"1|0312"_s);
    EXPECT_TRUE(customers.qCari.Options.CheckRowVersion);
    EXPECT_EQ(dialogs.shown.size(), 2u);
    inEditor([this] {
      EXPECT_EQ(box(u"CA_TEL"_s), u"0312"_s);
      enter(customerEditor, u"CA_NO"_s, u"2"_s);
      save();
      EXPECT_FALSE(customerEditor.isVisible()) << "the user's own save is no conflict";
    });
    EXPECT_EQ(dialogs.shown.size(), 2u);
    // A changed name is looked for as it stands in the box, and so the card counts as deleted: meant.
    inEditor([this] {
      run(u"UPDATE cari SET CA_TEL = '1' WHERE CA_AD = 'AYŞE IŞIK'");
      enter(customerEditor, u"CA_AD"_s, u"ayşe"_s);
      save();
      EXPECT_EQ(dialogs.shown.back().text, deletedText);
      giveUp();
    });
  });
}

TEST_F(CustomersTest, DeleteAsksAndIsTakenBackWhenTheServerRefuses) {
  QFile::remove(logFileName());
  run(u"INSERT INTO caricihaz (CH_CA_ID) SELECT CA_ID FROM cari WHERE CA_AD = 'AYŞE IŞIK'");
  inList([this] {
    EXPECT_TRUE(runCommand(customers, u"aFisSil"_s));
    EXPECT_EQ(rows(u"select count(*) from cari"_s), u"3"_s);
    dialogs.answers = {confirm};
    press(customers, Qt::Key_F6);
    ASSERT_EQ(dialogs.shown.size(), 3u);
    EXPECT_EQ(dialogs.shown[1].text, u"Seçilen cari kart silinecek onaylıyor musunuz?"_s);
    EXPECT_EQ(dialogs.shown[2].text, u"Seçilen cari kart silinemedi!"_s);
    EXPECT_EQ(dialogs.shown[2].closeAfterMs, 8000);
    EXPECT_THAT(contentOf(logFileName()).toStdString(), testing::HasSubstr("->qCari| DELETE FROM cari"));
    EXPECT_FALSE(DM->MySQL.InTransaction());
    EXPECT_EQ(shown(customers.qCari, u"CA_AD"_s).size(), 3);
    customers.grid()->setCurrentRow(1);
    dialogs.answers = {confirm};
    EXPECT_TRUE(runCommand(customers, u"aFisSil"_s));
    EXPECT_THAT(shown(customers.qCari, u"CA_AD"_s), ElementsAre(u"AYŞE IŞIK"_s, u"CEM İNCE"_s));
  });
  EXPECT_EQ(rows(u"select CA_AD from cari order by CA_AD"_s), u"AYŞE IŞIK;CEM İNCE"_s);
  EXPECT_EQ(dialogs.shown.size(), 4u);
}

TEST_F(CustomersTest, RefreshStaysOnTheCardAndMeansNoOtherWhenItIsGone) {
  inList([this] {
    customers.grid()->setCurrentRow(1);
    run(u"DELETE FROM cari WHERE CA_AD = 'AYŞE IŞIK'");
    EXPECT_TRUE(runCommand(customers, u"aGuncelle"_s));
    EXPECT_EQ(customers.qCari.FieldByName(u"CA_AD"_s).asText(), u"BARIŞ ÇELİK"_s);
    EXPECT_EQ(customers.grid()->currentRow(), 0);
    run(u"DELETE FROM cari WHERE CA_AD = 'BARIŞ ÇELİK'");
    EXPECT_TRUE(runCommand(customers, u"aGuncelle"_s));
    EXPECT_FALSE(runCommand(customers, u"aFisSil"_s)) << "the card under the cursor is another one";
    press(*customers.grid()->view(), Qt::Key_Space);
    dialogs.answers = {confirm};
    EXPECT_TRUE(runCommand(customers, u"aFisSil"_s)) << "selected by the user";
  });
  EXPECT_EQ(rows(u"select count(*) from cari"_s), u"0"_s);
}

TEST_F(CustomersTest, CommandsFollowRightsAndRows) {
  const QStringList all{u"aEkle"_s, u"aDuzelt"_s, u"aFisSil"_s, u"aCihaz"_s, u"aGuncelle"_s, u"aYazdir"_s, u"actSMS"_s, u"aIstatistik"_s};
  const auto enabled = [&] {
    updateCommands(&customers);
    QStringList names;
    for (const QString& name : all)
      if (customers.command(name)->isEnabled()) names += name;
    return names;
  };
  run(u"UPDATE cari SET CA_AD = NULL WHERE CA_AD = 'CEM İNCE'");
  inList([&] {
    EXPECT_EQ(enabled(), all);
    customers.grid()->setCurrentRow(2);
    EXPECT_FALSE(enabled().contains(u"aIstatistik"_s)) << "a customer without a name has no statistics";
    DM->MySQL.Username = u"OTHER"_s;
    EXPECT_THAT(enabled(), ElementsAre(u"aGuncelle"_s));
    DM->MySQL.Username = u"QUEND"_s;
    run(u"DELETE FROM cari");
    EXPECT_TRUE(runCommand(customers, u"aGuncelle"_s));
    EXPECT_THAT(enabled(), ElementsAre(u"aEkle"_s, u"aGuncelle"_s));
  });
}

TEST_F(CustomersTest, NumbersOfTheFilteredRowsGoToTheSms) {
  QStringList sent;
  ports().openBulkSms = [&](const QString& numbers) { sent += numbers; };
  ports().openCustomerStatistics = [&](const QString& customer) { sent += customer; };
  inList([&] {
    press(customers, Qt::Key_F11);
    EXPECT_EQ(customers.grid()->currentRow(), 2) << "stays on the last row";
    customers.grid()->setColumnFilter(u"CA_AD"_s, FilterOperator::Contains, u"ışı"_s);
    press(customers, Qt::Key_F11);
    press(customers, Qt::Key_F10);
  });
  EXPECT_THAT(sent, ElementsAre(u"532,,533"_s, u"532"_s, u"AYŞE IŞIK"_s));
}

TEST_F(CustomersTest, EachOpeningBeginsUnfilteredAndUngrouped) {
  inList([this] {
    customers.grid()->setColumnFilter(u"CA_AD"_s, FilterOperator::StartsWith, u"CEM"_s);
    customers.grid()->setGrouping({u"CA_CEP"_s});
    press(*customers.grid()->view(), Qt::Key_Home, Qt::ControlModifier);
    ASSERT_EQ(customers.grid()->currentRow(), -1) << "the group's own line";
    for (const QString& command : {u"aDuzelt"_s, u"aFisSil"_s, u"aCihaz"_s})
      EXPECT_FALSE(runCommand(customers, command)) << "no row is meant: " << qPrintable(command);
    EXPECT_EQ(customers.qCari.RecordCount(), 1);
  });
  EXPECT_FALSE(customers.qCari.Active());
  inList([this] {
    EXPECT_EQ(customers.qCari.RecordCount(), 3);
    EXPECT_TRUE(customers.grid()->grouping().isEmpty());
    EXPECT_EQ(customers.grid()->currentRow(), 0);
  });
}

TEST_F(CustomersTest, FilterByDeviceIsAskedOfTheServer) {
  run(u"INSERT INTO caricihaz (CH_CA_ID, CH_MODEL, CH_SERI) SELECT CA_ID, 'OCAK', CONCAT('O', CA_ID) FROM cari WHERE CA_AD <> 'CEM İNCE'");
  run(u"INSERT INTO caricihaz (CH_CA_ID, CH_MODEL, CH_SERI) SELECT CA_ID, 'FIRIN', CONCAT('F', CA_ID) FROM cari WHERE CA_AD = 'CEM İNCE'");
  const auto hasDevice = [](const QString& model) { return FilterExpression::condition(u"CH_MODEL"_s, FilterOperator::Equal, model); };
  inList([&] {
    customers.grid()->setColumnFilter(u"CA_AD"_s, FilterOperator::Contains, u"I"_s);
    customers.grid()->setFilter(hasDevice(u"OCAK"_s));
    EXPECT_THAT(shown(customers.qCari, u"CA_AD"_s), ElementsAre(u"AYŞE IŞIK"_s, u"BARIŞ ÇELİK"_s));
    EXPECT_TRUE(customers.qCari.SQL.text().startsWith(u"select distinct cari.*, caricihaz.CH_MODEL from caricihaz, cari where"_s));
    customers.grid()->clearFilter();
    EXPECT_EQ(customers.qCari.RecordCount(), 3);
    customers.grid()->setFilter(hasDevice(u"FIRIN"_s));
    EXPECT_THAT(shown(customers.qCari, u"CA_AD"_s), ElementsAre(u"CEM İNCE"_s));
    for (const QString& command : {u"aEkle"_s, u"aDuzelt"_s}) {
      dialogs.texts.clear();
      EXPECT_TRUE(runCommand(customers, command));
      EXPECT_FALSE(customerEditor.isVisible()) << "the rows of two tables have no key to be saved by";
      EXPECT_TRUE(dialogs.texts.last().startsWith(u"Cihaz modeline göre daraltılmış"_s));
    }
  });
  inList([this] { EXPECT_EQ(customers.qCari.RecordCount(), 3); });
}

// Whatever command meets a server that is gone, the program lives, the card stays as typed, and nothing is written.
TEST_F(CustomersTest, ServerGoneInMidCommand) {
  inList([this] {
    inEditor([this] {
      enter(customerEditor, u"CA_NO"_s, u"1"_s);
      cutConnection();
      save();
      EXPECT_TRUE(customerEditor.isVisible());
      EXPECT_EQ(box(u"CA_NO"_s), u"1"_s);
      giveUp();
    });
    EXPECT_TRUE(unhandled.isEmpty()) << "a failed save is said to nobody: meant";
    EXPECT_TRUE(dialogs.shown.empty());

    dialogs.answers = {confirm};
    EXPECT_TRUE(runCommand(customers, u"aFisSil"_s));
    EXPECT_EQ(dialogs.texts.back(), u"Seçilen cari kart silinemedi!"_s);
    EXPECT_EQ(customers.qCari.RecordCount(), 3);

    for (const QString& command : {u"aGuncelle"_s, u"aCihaz"_s}) {
      EXPECT_TRUE(runCommand(customers, command));
      EXPECT_EQ(std::exchange(unhandled, {}).size(), 1) << qPrintable(command);
    }
    EXPECT_EQ(customers.qCari.RecordCount(), 3);
    within([this] { EXPECT_TRUE(runCommand(customers, u"aEkle"_s)); }, customerEditor, [this] {
      enter(customerEditor, u"CA_AD"_s, u"x"_s);
      save();
      EXPECT_TRUE(customerEditor.isVisible());
      giveUp();
    });
    EXPECT_TRUE(runCommand(customers, u"actSMS"_s));
  });
  EXPECT_EQ(rows(u"select count(*) from cari where CA_NO is null"_s), u"3"_s);
  guarded(&customers, [this] { customers.Giris(); });
  EXPECT_FALSE(customers.isVisible());
  EXPECT_EQ(std::exchange(unhandled, {}).size(), 1);
}

// Commands in any order, under any order, grouping and search: the editor always gets the row under the cursor, and in the end
// the list shows what is stored.
TEST_F(CustomersTest, RandomCommandsKeepCursorAndRowsTogether) {
  quint32 state = 1;
  const auto below = [&state](int bound) { return int(((state = state * 1664525 + 1013904223) >> 10) % quint32(bound)); };
  for (int i = 0; i < 30; ++i) run(u"INSERT INTO cari (CA_AD, CA_CEP, CA_ILCE) VALUES ('M%1', '%2', '%3')"_s.arg(i).arg(i % 5).arg(i % 3));
  DataGrid* grid = customers.grid();
  const auto typeCard = [&](const QString& name) {
    if (!name.isEmpty()) enter(customerEditor, u"CA_AD"_s, name);
    enter(customerEditor, u"CA_CEP"_s, QString::number(below(6)));
    if (below(2) == 0) save();
    if (customerEditor.isVisible()) giveUp();
  };
  const std::function<void(int)> commands[] = {
      [&](int) { grid->setGrouping({}); },
      [&](int) { grid->setGrouping(below(2) == 0 ? QStringList{u"CA_ILCE"_s} : QStringList{u"CA_CEP"_s, u"CA_ILCE"_s}); },
      [&](int) { grid->setOrder({{below(2) == 0 ? u"CA_AD"_s : u"CA_CEP"_s, below(2) == 0}}); },
      [&](int) { grid->setColumnFilter(u"CA_CEP"_s, FilterOperator::Equal, QString::number(below(6))); },
      [&](int) { grid->clearFilter(); },
      [&](int) { runCommand(customers, u"aGuncelle"_s); },
      [&](int) { press(*grid->view(), below(2) == 0 ? Qt::Key_Down : Qt::Key_Up); },
      [&](int) { press(*grid->view(), below(2) == 0 ? Qt::Key_Plus : Qt::Key_Minus); },
      [&](int step) { run(u"UPDATE cari SET CA_TEL = '%1' ORDER BY CA_ID LIMIT 2"_s.arg(step)); },
      [&](int) {
        dialogs.answers = {confirm};
        runCommand(customers, u"aFisSil"_s);
        dialogs.answers.clear();
      },
      [&](int) {
        if (grid->currentRow() >= 0) inEditor([&] { typeCard({}); });
      },
      [&](int step) {
        within([&] { EXPECT_TRUE(runCommand(customers, u"aEkle"_s)); }, customerEditor, [&] { typeCard(u"N%1"_s.arg(step)); });
      }};
  inList([&] {
    for (int step = 0; step < 400; ++step) {
      const int command = below(int(std::size(commands)));
      SCOPED_TRACE(testing::Message() << "step " << step << ", command " << command);
      commands[command](step);
      ASSERT_EQ(customers.qCari.state(), QueryState::Browse);
      ASSERT_TRUE(grid->currentRow() < 0 || grid->currentRow() == customers.qCari.RecNo()) << grid->currentRow();
    }
    grid->clearFilter();
    runCommand(customers, u"aGuncelle"_s);
    EXPECT_EQ(shown(customers.qCari, u"CA_AD"_s).join(u';'), rows(u"select CA_AD from cari order by CA_ID"_s));
  });
}
