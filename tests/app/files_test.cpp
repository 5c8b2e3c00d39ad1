#include "base/ini_file.h"
#include "base/log_file.h"
#include "base/platform/machine.h"
#include "base/platform/server_check.h"
#include "base/platform/settings_store.h"
#include "tests/support/test.h"

namespace {

class Files : public testing::Test {
 protected:
  QString path(const QString& name) const { return folder.filePath(name); }
  void put(const QString& name, const QByteArray& bytes) const { ::put(path(name), bytes); }
  QByteArray content(const QString& name) const { return contentOf(path(name)); }
  QTemporaryDir folder;
};

TEST_F(Files, IniReadsSectionsAndKeysOfAnyShape) {
  put(u"a.ini"_s, "\xEF\xBB\xBFoutside=0\r\n[Bir]\r\nAd = \xC4\xB0\xC5\x9Fletme = 2 \r\nbos=\r\nno mark\r\n=nameless\n[iki]\nAd=3\nYaz\xFD" "c\xFD=  B\xFCro Yaz\xFD" "c\xFDs\xFD \n[Bir]\nAd=4");
  struct Case {
    QString section, key, value;
  };
  for (const auto& [section, key, value] : {Case{u"bir"_s, u"AD"_s, u"İşletme = 2 "_s}, Case{u"Bir"_s, u"bos"_s, u""_s}, Case{u"iki"_s, u"Ad"_s, u"3"_s}, Case{u"iki"_s, u"Yazıcı"_s, u"  Büro Yazıcısı "_s},
                                            Case{u"bir"_s, u"outside"_s, u"yedek"_s}, Case{u"üç"_s, u"Ad"_s, u"yedek"_s}})
    EXPECT_EQ(IniFile::read(path(u"a.ini"_s), section, key, u"yedek"_s), value) << key.toStdString();
  put(u"wrong.ini"_s, QByteArray("\0\xFF[[[=]\n[Bir", 12));
  for (const QString& file : {path(u"none.ini"_s), path(u"wrong.ini"_s), folder.path()})
    EXPECT_EQ(IniFile::read(file, u"Bir"_s, u"Ad"_s, u"yedek"_s), u"yedek"_s);
}

TEST_F(Files, IniWriteChangesOneLineOnly) {
  put(u"a.ini"_s, "; not\xFE\x69 UTF-8\n[Bir]\nAd=1\nDiger=x\n\n[iki]\nAd=3\n");
  const QString file = path(u"a.ini"_s);
  IniFile::write(file, u"BIR"_s, u"ad"_s, u"ğ\r\n=["_s);
  IniFile::write(file, u"Bir"_s, u"Yeni"_s, u""_s);
  IniFile::write(file, u"Üç"_s, u"k"_s, u"v"_s);
  EXPECT_EQ(content(u"a.ini"_s), "; not\xFE\x69 UTF-8\r\n[Bir]\r\nad=\xC4\x9F =[\r\nDiger=x\r\nYeni=\r\n\r\n[iki]\r\nAd=3\r\n[\xC3\x9C\xC3\xA7]\r\nk=v\r\n");
  EXPECT_EQ(IniFile::read(file, u"Bir"_s, u"Yeni"_s, u"yedek"_s), u""_s);
  for (const QString& unwritable : {u"/dev/full"_s, u"/proc/none.ini"_s, folder.path(), path(u"missing/a.ini"_s)})
    EXPECT_THROW(IniFile::write(unwritable, u"Bir"_s, u"Ad"_s, u"1"_s), EInOutError) << unwritable.toStdString();
}

TEST_F(Files, SettingsAreExactAndPrivate) {
  const QString file = path(u"sub/settings.ini"_s);
  qputenv("KVTK_SETTINGS", file.toLocal8Bit());
  const auto read = [](const QString& key) { return SettingsStore::read(u"SOFTWARE\\Quendrine"_s, u"KVTK"_s, key, u"yedek"_s); };
  EXPECT_EQ(read(u"a"_s), u"yedek"_s);
  for (const QString& value : {u""_s, u" blanks "_s, u"İı\\n\"q\"\\"_s, u"two\r\nlines\n"_s, u"[x]=y;"_s, u"\""_s}) {
    SettingsStore::write(u"SOFTWARE\\Quendrine"_s, u"KVTK"_s, u"a"_s, value);
    EXPECT_EQ(read(u"a"_s), value) << value.toStdString();
  }
  SettingsStore::write(u"SOFTWARE\\Quendrine"_s, u"KVTK"_s, u"b"_s, u"2"_s);
  EXPECT_EQ(read(u"a"_s), u"\""_s);
  EXPECT_EQ(SettingsStore::read(u"SOFTWARE\\Other"_s, u"KVTK"_s, u"b"_s), u""_s);
  EXPECT_EQ(QFileInfo(file).permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther), QFile::Permissions());
  qputenv("KVTK_SETTINGS", "/proc/none/settings.ini");
  EXPECT_THROW(SettingsStore::write(u"p"_s, u"s"_s, u"k"_s, u"v"_s), EInOutError);
}

TEST_F(Files, LogEntries) {
  const QDateTime now(QDate(2020, 3, 5), QTime(8, 7, 6));
  const LogFile::Context context{now, u"QUEND"_s, u"fKvb"_s, u"TS_NO"_s};
  const QString ruler(20, u'-');
  EXPECT_EQ(LogFile::errorEntry(context, EConvertError(u"bozuk"_s)), u"05.03.2020 08:07:06|QUEND|Exception|TS_NO|bozuk\r\n"_s + ruler);
  EXPECT_EQ(LogFile::errorEntry(context, EMyError(1146, u"42S02"_s, u"Table missing"_s, u"qServis"_s, u"select *\nfrom x"_s)),
            u"05.03.2020 08:07:06|QUEND|EDatabaseError|TS_NO|#42S02Table missing\r\n"_s + ruler + u"\r\nqServis| select *\nfrom x"_s);
  EXPECT_EQ(LogFile::markerEntry(context, u"lYetki"_s, u"Yetki Path hatası...: x"_s),
            u"05.03.2020 08:07:06|QUEND|fKvb|TS_NO|lYetki| Yetki Path hatası...: x\r\n"_s + ruler);
  const Exception error(u"iki\r\nsatır"_s);
  EXPECT_EQ(LogFile::messageEntry(now, u"SMTP"_s, &error), u"05.03.2020 08:07:06->SMTP (iki satır)"_s);
  EXPECT_EQ(LogFile::messageEntry(now, u"SMTP"_s, nullptr), u"05.03.2020 08:07:06->SMTP"_s);
}

TEST_F(Files, LogAppendsOrSaysThatItCannot) {
  EXPECT_TRUE(LogFile::append(path(u"a.log"_s), u"bir"_s));
  EXPECT_TRUE(LogFile::append(path(u"a.log"_s), u"iki ğ"_s));
  EXPECT_EQ(content(u"a.log"_s), "bir\r\niki \xC4\x9F\r\n");
  for (const QString& unwritable : {u"/dev/full"_s, u"/proc/none.log"_s, folder.path()}) EXPECT_FALSE(LogFile::append(unwritable, u"bir"_s));
}

TEST_F(Files, ALogOfRefusalsStaysSmallAndKeepsTheErrors) {
  const QString file = path(u"kvtk.log"_s);
  const QString ruler = u"\r\n"_s + QString(20, u'-');
  const QDateTime start(QDate(2020, 3, 5), QTime(8, 0, 0));
  const LogFile::Context context{start, u"AYSE"_s, u"fmusteriler"_s, {}};
  constexpr int refusals = 60'000;  // 6 MiB of them
  ASSERT_TRUE(LogFile::append(file, LogFile::errorEntry(context, EMyError(1, u"HY000"_s, u"asıl hata"_s, u"qCari"_s, u"select *\n\nfrom cari"_s))));
  for (int i = 0; i < refusals; ++i) {
    LogFile::Context at = context;
    at.now = start.addMSecs(200 * i);
    ASSERT_TRUE(LogFile::append(file, LogFile::markerEntry(at, u"Yetki"_s, u"Yetki Path hatası...: Kartlar\\%1"_s.arg(i % 10))));
  }
  EXPECT_LE(content(u"kvtk.log"_s).size(), LogFile::mostBytes + 200);
  const QByteArray old = content(u"kvtk.1.log"_s);
  EXPECT_LT(old.size(), 3000);
  EXPECT_TRUE(old.startsWith("05.03.2020 08:00:00|AYSE|EDatabaseError||#HY000asıl hata\r\n--------------------\r\nqCari| select *\n\nfrom cari\r\n"))
      << old.left(300).constData();
  EXPECT_EQ(old.count("Kartlar\\7\r\n"), 1);

  // Entries that differ are all kept, and the oldest files go.
  for (int i = 0; i < 3 * (LogFile::oldFiles + 3); ++i)
    ASSERT_TRUE(LogFile::append(file, LogFile::messageEntry(start.addDays(1), QString(LogFile::mostBytes / 3, QChar(u'a' + i)), nullptr)));
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), LogFile::oldFiles + 1);
  for (const QFileInfo& each : QDir(folder.path()).entryInfoList(QDir::Files)) EXPECT_LE(each.size(), LogFile::mostBytes + LogFile::mostBytes / 2);
}

TEST(Machine, TellsOfThisComputer) {
  EXPECT_THAT(machine().osVersion().toStdString(), testing::MatchesRegex(".+ [0-9]+\\.[0-9]+\\.[0-9]+"));
  EXPECT_TRUE(machine().processFiles().contains(QFileInfo(u"/proc/self/exe"_s).symLinkTarget()));
  qputenv("KVTK_COMPUTER_NAME", " 127.0.0.9 ");
  EXPECT_EQ(machine().computerName(), u"127.0.0.9"_s);
  EXPECT_EQ(machine().firstAddress(), u"127.0.0.9"_s);
  qunsetenv("KVTK_COMPUTER_NAME");
  EXPECT_FALSE(machine().computerName().isEmpty());
}

TEST(Machine, ServerCheckTellsAServerFromNone) {
  EXPECT_FALSE(serverAnswers(u"127.0.0.1"_s, 1, 2000));
  EXPECT_FALSE(serverAnswers(u"no-such-host.invalid"_s, 3313, 500));
  // An address of a network that is there for documentation only: it may be unreachable or swallow everything.
  EXPECT_FALSE(serverAnswers(u"192.0.2.1"_s, 3313, 500));
  EXPECT_TRUE(serverAnswers(qEnvironmentVariable("KVTK_TEST_SERVER"), 3313, 3000));
}

}  // namespace
