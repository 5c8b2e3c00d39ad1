#include "app/company_card.h"
#include "app/dmUnit.h"
#include "app/editors/qcx_editors.h"
#include "app/quendUtils.h"
#include "base/data/my_query.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "tests/support/screen_test.h"
#include "tests/support/test_database.h"

namespace {

/// The card on the real table, whose single row is given back afterwards.
class CompanyCard : public testing::Test {
 protected:
  CompanyCard() {
    TestDatabase::open(data.MySQL);
    database.run(u"UPDATE sirket SET SIRKET_ADI = 'ESKİ', SIRKET_FAX = NULL");
    card.qSirket.Open();
  }
  ~CompanyCard() override { database.run(u"UPDATE sirket SET SIRKET_ADI = '', SIRKET_FAX = NULL"); }

  QLineEdit& line(const QString& column) { return *card.findChild<qcxButtonEdit*>(column)->findChild<QLineEdit*>(); }
  /// Opens the card, lets a user work in it and closes it if the work has not.
  int show(const std::function<void()>& work) {
    int result = 0;
    within([&] { result = card.Giris(); }, card, [&] {
      work();
      if (card.isVisible()) card.reject();
    });
    return result;
  }

  TestDatabase database;
  TDM data;
  TQuendUtil utilities{u"/tmp/kvtk"_s};
  TfSirket card;
};

TEST_F(CompanyCard, TamamStoresWhatWasTypedInCapitalsAndGivingUpStoresNothing) {
  EXPECT_EQ(show([&] {
              EXPECT_EQ(line(u"SIRKET_ADI"_s).text(), u"ESKİ"_s);
              line(u"SIRKET_ADI"_s).selectAll();
              type(&line(u"SIRKET_ADI"_s), u"i\"l'k\\ ş"_s);
              EXPECT_EQ(card.findChild<qcxButtonEdit*>(u"SIRKET_FAX"_s)->maxLength(), 20);
              card.Tamam_Button->click();
            }),
            TfSirket::Saved);
  EXPECT_EQ(database.rows(u"SELECT SIRKET_ADI FROM sirket"_s), u"İ\"L'K\\ Ş"_s);

  EXPECT_EQ(show([&] { line(u"SIRKET_ADI"_s).setText(u"BAŞKA"_s); }), TfSirket::GivenUp);
  EXPECT_EQ(line(u"SIRKET_ADI"_s).text(), u"İ\"L'K\\ Ş"_s) << "what was given up is not printed";
}

TEST_F(CompanyCard, WhatTheServerRefusesStaysOnTheScreen) {
  QString told;
  setUnhandledHandler([&](QObject*, const std::exception& error) { told = QString::fromUtf8(error.what()); });
  EXPECT_EQ(show([&] {
              database.cut(data.MySQL);
              line(u"SIRKET_ADI"_s).setText(u"YENİ"_s);
              card.Tamam_Button->click();
              EXPECT_TRUE(card.isVisible());
              EXPECT_EQ(line(u"SIRKET_ADI"_s).text(), u"YENİ"_s);
            }),
            TfSirket::GivenUp);
  setUnhandledHandler({});
  EXPECT_FALSE(told.isEmpty());
  EXPECT_EQ(database.rows(u"SELECT SIRKET_ADI FROM sirket"_s), u"ESKİ"_s);
}

}  // namespace
