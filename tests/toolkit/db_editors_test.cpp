#include "app/editors/qcx_db_editors.h"
#include "base/data/value.h"
#include "base/guard.h"
#include "tests/data/query_fixture.h"
#include "tests/support/screen_test.h"

/// Two boxes on the fields of one row.
class DbEditorsTest : public QueryTest {
 protected:
  void SetUp() override {
    QueryTest::SetUp();
    insertRow(u"A1"_s, u"İLK"_s);
    openRow(query, insertRow(u"A2"_s, u"SON"_s));
    auto* column = new QVBoxLayout(&form_);
    column->addWidget(name_);
    column->addWidget(amount_);
    name_->fieldLink().bind(&query, u"AD"_s);
    amount_->fieldLink().bind(&query, u"TUTAR"_s);
    form_.show();
    form_.activateWindow();
    name_->setFocus();
    QApplication::processEvents();
  }
  void TearDown() override {
    name_->fieldLink().bind(nullptr, {});
    amount_->fieldLink().bind(nullptr, {});
    QueryTest::TearDown();
  }

  QWidget form_;
  qcxDBTextEdit* name_ = new qcxDBTextEdit;
  qcxDBCurrencyEdit* amount_ = new qcxDBCurrencyEdit;
};

TEST_F(DbEditorsTest, ABoxShowsItsFieldAndWritesWhenItIsLeft) {
  EXPECT_EQ(name_->text(), u"SON"_s);
  EXPECT_TRUE(amount_->editValue().isNull());
  QTest::keyClick(name_->line(), Qt::Key_Return);
  EXPECT_EQ(query.state(), QueryState::Browse) << "passing through edits nothing";
  type(amount_->line(), u"12,5"_s);
  name_->setFocus();
  EXPECT_EQ(query.state(), QueryState::Edit);
  EXPECT_EQ(query.FieldByName(u"TUTAR"_s).asDouble(), 12.5);
  amount_->setFocus();
  amount_->line()->selectAll();
  QTest::keyClick(amount_->line(), Qt::Key_Delete);
  name_->setFocus();
  EXPECT_EQ(query.FieldByName(u"TUTAR"_s).value(), Value(0.0)) << "emptied";
  query.Cancel();
  EXPECT_TRUE(amount_->editValue().isNull());
}

TEST_F(DbEditorsTest, AnotherFieldsWriteLeavesWhatIsBeingTyped) {
  name_->line()->selectAll();
  type(name_->line(), u"YENİ"_s);
  edit(query, u"TUTAR"_s, Value(3));
  EXPECT_EQ(amount_->value(), 3);
  EXPECT_EQ(name_->text(), u"YENİ"_s);
  amount_->setFocus();
  query.Post();
  EXPECT_EQ(scalar(u"select AD from deneme where NO = 'A2'"_s), u"YENİ"_s);
}

TEST_F(DbEditorsTest, AnUnstorableTextIsReportedAndStays) {
  QStringList reported;
  const auto previous = setUnhandledHandler([&](QObject*, const std::exception& error) { reported += QString::fromUtf8(error.what()); });
  name_->line()->selectAll();
  name_->line()->pasteText(u"\U0001F600"_s);
  amount_->setFocus();
  setUnhandledHandler(previous);
  EXPECT_EQ(reported.size(), 1);
  EXPECT_EQ(name_->text(), u"\U0001F600"_s);
  query.Close();
  EXPECT_FALSE(name_->isEnabled());
  EXPECT_TRUE(name_->text().isEmpty());
}
