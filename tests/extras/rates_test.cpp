// The rate document and the load's order.
#include "extras/rate_load.h"

#include "app/ports.h"
#include "base/whole_file.h"
#include "tests/support/test.h"

using testing::ElementsAre;

namespace {

const QString today = u"05.03.2026"_s;

QByteArray document(const QByteArray& date, const QByteArray& rows) {
  return "<DOVIZ><KUR><ADI>TARIH</ADI><ALIS>" + date + "</ALIS><SATIS/></KUR>" + rows + "</DOVIZ>";
}

QByteArray row(const QByteArray& code, const QByteArray& selling) {
  return "<KUR><ADI>" + code + "</ADI><ALIS>1</ALIS><SATIS>" + selling + "</SATIS></KUR>";
}

/// Writes down what the load does, and answers as it is told.
class Steps : public RateScreen {
 public:
  std::optional<DayRates> row = DayRates{u"04.03.2026"_s, {2, 3, 4}};
  std::optional<QByteArray> served;  ///< nothing: the download fails
  bool losesFile = false;
  bool cannotStore = false;

  QStringList done;
  QString shown;
  std::array<double, 3> rates{};
  QTemporaryDir folder;
  QString file = folder.filePath(u"temp.xml"_s);

  void load() {
    WholeFile::replace(file, "left over");
    RateLoad::load(today, today, file, *this);
  }

  QString date() const override { return shown; }
  void setDate(const QString& date) override { shown = date; }
  void setRate(Currency currency, double rate) override { rates[size_t(currency)] = rate; }
  void setUnreadableRate(Currency, const QString& text) override { done += text; }
  void setHourglass(bool on) override { done += on ? u"wait"_s : u"ready"_s; }
  void setStatusText(const QString& text) override {
    done += text.section(u' ', 0, 0) + u' ' + text.section(u' ', -1) + (QFile::exists(file) ? u" file"_s : QString());
  }
  std::optional<DayRates> storedRates() override { return row; }
  bool download(const QString& name) override {
    done += u"download"_s;
    if (!served) return false;
    if (losesFile) return QFile::remove(name);
    WholeFile::replace(name, *served);
    return true;
  }
  void store() override {
    done += u"store %1 %2 %3 %4"_s.arg(shown).arg(rates[0]).arg(rates[1]).arg(rates[2]);
    if (cannotStore) throw EDatabaseError(u"gone"_s);
  }
};

const QString success = today + u" yüklendi."_s;

}  // namespace

TEST(RateLoad, RatesOfTheDayComeFromTheRowAndOthersFromTheService) {
  Steps steps;
  steps.row->date = today;
  steps.load();
  EXPECT_THAT(steps.done, ElementsAre(success + u" file"_s));
  EXPECT_THAT(steps.rates, ElementsAre(2, 3, 4));

  Steps fresh;
  fresh.served = document("05/03/2026", row("USD", " \n41.25 ") + row("EUR", "") + row("usd", "9") + row("GBP", "1") + row("GBP", "54,9375"));
  fresh.load();
  EXPECT_THAT(fresh.done, ElementsAre(u"wait"_s, u"download"_s, success + u" file"_s, u"store 05.03.2026 41.25 1 54.9375"_s, success, u"ready"_s));
  EXPECT_FALSE(QFile::exists(fresh.file));

  // Of yesterday: its failure's words, then the rates as today's all the same.
  Steps old;
  old.row.reset();
  old.served = document("04-03-2026", row("EUR", "48.125"));
  old.load();
  EXPECT_THAT(old.done, ElementsAre(u"wait"_s, u"download"_s, u"ready"_s, u"04.03.2026 alınamadı."_s, u"04.03.2026 yüklendi."_s,
                                    u"store 05.03.2026 1 48.125 1"_s, success, u"ready"_s));
}

TEST(RateLoad, WordsOfSuccessComeLastHoweverItEnds) {
  Steps down;
  down.load();
  EXPECT_THAT(down.done, ElementsAre(u"wait"_s, u"download"_s, u"ready"_s, u"Günlük alınamadı."_s, success, u"ready"_s));
  EXPECT_THAT(down.rates, ElementsAre(1, 1, 1));

  Steps lost;
  lost.served.emplace();
  lost.losesFile = true;
  lost.load();
  EXPECT_THAT(lost.done, ElementsAre(u"wait"_s, u"download"_s, u"ready"_s, u"Döviz ulaşılamıyor."_s, success, u"ready"_s));

  Steps refused;
  refused.served = document("05.03.2026", row("USD", "2") + row("EUR", "1,234.5"));
  refused.cannotStore = true;
  QString logged;
  ports().log = [&](const QString&, const std::exception* error) { logged = QString::fromUtf8(error->what()); };
  refused.load();
  ports() = {};
  EXPECT_EQ(logged, u"gone"_s);
  EXPECT_THAT(refused.done.mid(2), ElementsAre(u"1,234,5"_s, success + u" file"_s, u"store 05.03.2026 2 1 1"_s, success, u"ready"_s));

  for (const QByteArray& bad : {document("30.02.2026", {}), document("yarın", {}), document("05032026", {})}) {
    Steps steps;
    steps.served = bad;
    EXPECT_THROW(steps.load(), EConvertError) << bad.constData();
    EXPECT_THAT(steps.done.mid(steps.done.size() - 2), ElementsAre(success, u"ready"_s));
    EXPECT_FALSE(QFile::exists(steps.file));
    EXPECT_FALSE(steps.done.join(u' ').contains(u"store"_s));
  }
}

TEST(RateDocument, EveryMarkOfADateIsRead) {
  for (const char* date : {"01/02/2026", "01-02-2026", "01.02.2026", "1/2-2026"})
    EXPECT_EQ(RateDocument::read(document(date, {})).day(), QDate(2026, 2, 1)) << date;
}

TEST(RateDocument, HostileDocumentsDoNoHarmAndEndSoon) {
  QByteArray laughs = "<!DOCTYPE d [<!ENTITY a \"ha\">";
  for (char name = 'b'; name < 'z'; ++name)
    laughs += QByteArray("<!ENTITY ") + name + " \"" + QByteArray("&x;").replace('x', char(name - 1)).repeated(10) + "\">";
  laughs += "<!ENTITY f SYSTEM \"file:///etc/passwd\">]>";
  const auto soon = [](const QByteArray& bytes) -> std::optional<RateDocument> {
    QElapsedTimer time;
    time.start();
    std::optional<RateDocument> read;
    try {
      read = RateDocument::read(bytes);
    } catch (const EWireError&) {
    }
    EXPECT_LT(time.elapsed(), 5000) << bytes.left(40).constData();
    return read;
  };
  const auto rates = soon(laughs + document("05.03.2026", row("USD", "&y;") + row("EUR", "&f;")));
  ASSERT_TRUE(rates);
  EXPECT_EQ(rates->sellings[0].text, u"&y;"_s);
  EXPECT_EQ(rates->sellings[1].text, u"&f;"_s);

  const qsizetype most = RateDocument::longest;
  const auto deep = soon(QByteArray("<a>").repeated(most / 7) + QByteArray("</a>").repeated(most / 7));
  EXPECT_TRUE(deep && deep->sellings.empty());
  EXPECT_FALSE(soon(QByteArray("<a>").repeated(most / 3)));
  EXPECT_FALSE(soon(document("1.1.2026", {}) + QByteArray(most, ' ')));
  EXPECT_FALSE(soon("<DOVIZ>text</DOVIZ>"));
  const auto wide = soon(document("1.1.2026", row("USD", "1").repeated(int((most - 200) / row("USD", "1").size()))));
  EXPECT_TRUE(wide && wide->sellings.size() > 10000);
}
