#include "base/data/query_listener.h"
#include "base/data/server_wait.h"
#include "base/data/value.h"
#include "tests/data/query_fixture.h"

#include <cmath>
#include <limits>

TEST_F(QueryTest, EveryTypeComesBackAsItWent) {
  QByteArray picture;
  for (int i = 0; i < 70000; ++i) picture.append(char(i * 7));
  const QString awkward = u"O'Brien \\ \"x\" `y` %_ İĞÜŞÖÇığüşöç €–’ \r\n\t;--"_s + QChar(0);
  struct {
    const char* field;
    Value value;
  } const cases[] = {{"AD", awkward},
                     {"KISA", -32768},
                     {"TUTAR", 0.1 + 0.2},
                     {"TUTAR", std::numeric_limits<double>::max()},
                     {"TUTAR", std::numeric_limits<double>::denorm_min()},
                     {"TUTAR", 1.0 / 3.0},
                     {"MIKTAR", Decimal{u"-123456789.125"_s}},
                     {"TARIH", QDate(2024, 2, 29)},
                     {"TARIH", ZeroDate{}},
                     {"SAAT", QTime(23, 59, 58)},
                     {"AN", QDateTime(QDate(2026, 11, 22), QTime(8, 5, 1))},
                     {"RESIM", picture},
                     {"RESIM", QByteArray("")},
                     {"NOTU", u"ş"_s.repeated(100000)},
                     {"AD", Value()},
                     {"TARIH", Value()}};
  openRow(query, insertRow(u"1"_s, u"x"_s));
  for (const auto& row : cases) {
    const QString name = QString::fromLatin1(row.field);
    post(query, name, row.value);
    EXPECT_EQ(query.FieldByName(name).value(), row.value) << row.field << " before reading again";
    query.Refresh();
    EXPECT_EQ(query.FieldByName(name).value(), row.value) << row.field;
  }
}

TEST_F(QueryTest, TextGoesThroughTheColumnsType) {
  openRow(query, insertRow(u"1"_s, u"x"_s));
  edit(query, u"TUTAR"_s, u"1.250,50"_s);
  query.FieldByName(u"MIKTAR"_s).set(u"2,5"_s);
  query.FieldByName(u"TARIH"_s).set(u"5.3.2020"_s);
  query.FieldByName(u"SAAT"_s).set(u"08:30"_s);
  query.FieldByName(u"AD"_s).set(u""_s);
  query.Post();
  EXPECT_EQ(scalar(u"select concat_ws('|',TUTAR,MIKTAR,TARIH,SAAT,AD is null) from deneme"_s), u"1250.5|2.500|2020-03-05|08:30:00|1"_s);
  query.Edit();
  EXPECT_THROW(query.FieldByName(u"TARIH"_s).set(u"31.02.2020"_s), EConvertError);
  EXPECT_THROW(query.FieldByName(u"TUTAR"_s).set(u"on lira"_s), EConvertError);
}

TEST_F(QueryTest, WhatTheColumnCannotHoldIsRefusedBeforeSending) {
  openRow(query, insertRow(u"1"_s, u"x"_s));
  query.Edit();
  const quint64 before = connection.roundTrips();
  struct {
    const char* field;
    Value value;
  } const cases[] = {{"AD", u"Привет"_s},          {"AD", u"A"_s.repeated(201)},     {"NO", u"1234567890123456"_s}, {"KISA", 32768},
                     {"KISA", -32769},             {"MIKTAR", u"1234567890,1"_s},    {"MIKTAR", u"1,2345"_s},       {"TUTAR", std::nan("")},
                     {"NOTU", u"ok 🙂"_s}};
  for (const auto& row : cases) {
    const auto error = raised<EUnstorableValue>([&] { query.FieldByName(QString::fromLatin1(row.field)).set(row.value); });
    EXPECT_EQ(error.field(), QString::fromLatin1(row.field));
  }
  query.ParamByName(u"ID"_s) = u"д"_s;
  query.Cancel();
  EXPECT_THROW(query.Open(), EUnstorableValue);
  EXPECT_EQ(connection.roundTrips(), before);
}

TEST_F(QueryTest, OnlyChangedColumnsAreSentAndNothingWhenNoneChanged) {
  openRow(query, insertRow(u"1"_s, u"first"_s));
  connection.execute("UPDATE deneme SET TUTAR=7, STAMP=STAMP");
  edit(query, u"NO"_s, u"1"_s);
  query.FieldByName(u"AD"_s).set(u"second"_s);
  query.Post();
  EXPECT_EQ(scalar(u"select concat(AD, TUTAR) from deneme"_s), u"second7"_s);
  const quint64 before = connection.roundTrips();
  post(query, u"AD"_s, u"second"_s);
  EXPECT_EQ(connection.roundTrips(), before);
}

TEST_F(QueryTest, OfTwoWritersWithinOneSecondOneLoses) {
  const qint64 id = insertRow(u"1"_s, u"x"_s);
  run("UPDATE deneme SET AD = 'theirs'");
  edit(query, u"AD"_s, u"mine"_s);
  raised<EDatabaseError>([&] { query.Post(); });  // an inserted row has its version as well
  query.Cancel();
  TMyConnection& second = database.secondConnection();
  TMyQuery other(second, u"qOther"_s);
  other.Options.CheckRowVersion = true;
  openRow(query, id);
  openRow(other, id);
  edit(query, u"AD"_s, u"mine"_s);
  edit(other, u"TUTAR"_s, 5.0);
  query.Post();
  const auto error = raised<EDatabaseError>([&] { other.Post(); });
  EXPECT_EQ(error.className(), u"EDatabaseError"_s);
  EXPECT_EQ(error.message(), u"Update failed. Found 0 records"_s);
  EXPECT_EQ(other.state(), QueryState::Edit);
  other.Cancel();
  other.RefreshRecord();
  EXPECT_EQ(other.FieldByName(u"AD"_s).asText(), u"mine"_s);
  post(other, u"TUTAR"_s, 5.0);
  post(other, u"TUTAR"_s, 6.0);
  EXPECT_EQ(scalar(u"select concat(AD, TUTAR) from deneme"_s), u"mine6"_s);
}

TEST_F(QueryTest, ARowThatIsGoneIsTold) {
  openRow(query, insertRow(u"1"_s, u"x"_s));
  run("DELETE FROM deneme");
  const auto refresh = raised<EDatabaseError>([&] { query.RefreshRecord(); });
  EXPECT_EQ(refresh.message(), u"Refresh failed. Found 0 records"_s);
  EXPECT_EQ(refresh.className(), u"EDatabaseError"_s);
  EXPECT_EQ(refresh.queryName(), u"qDeneme"_s);
  edit(query, u"AD"_s, u"y"_s);
  EXPECT_EQ(raised<EDatabaseError>([&] { query.Post(); }).message(), u"Update failed. Found 0 records"_s);
}

TEST_F(QueryTest, DuplicateKeysReadAlikeAndKeepTheRowInInsert) {
  insertRow(u"100"_s, u"x"_s);
  query.Insert();
  query.FieldByName(u"NO"_s).set(u"100"_s);
  const auto error = raised<EMyError>([&] { query.Post(); });
  EXPECT_EQ(error.message(), u"#23000Duplicate entry '100' for key 'DN_NO'"_s);
  EXPECT_EQ(error.code(), 1062U);
  EXPECT_FALSE(error.queryText().isEmpty());
  EXPECT_EQ(query.state(), QueryState::Insert);
  query.FieldByName(u"NO"_s).set(u"101"_s);
  query.Post();
  EXPECT_EQ(scalar(u"select count(*) from deneme"_s), u"2"_s);
}

TEST_F(QueryTest, AHookMayTellOfAFailedPostInTheErrorsPlace) {
  insertRow(u"100"_s, u"x"_s);
  QString told;
  bool tells = true;
  query.OnPostError = [&](const Exception& error) {
    told = error.className();
    return tells;
  };
  query.OnNewRecord = [&] { query.FieldByName(u"AD"_s).set(u"default"_s); };
  query.BeforePost = [&] { query.FieldByName(u"KISA"_s).set(7); };
  query.Insert();
  query.FieldByName(u"NO"_s).set(u"100"_s);
  raised<EAbort>([&] { query.Post(); });
  EXPECT_EQ(told, u"EMyError"_s);
  tells = false;
  raised<EMyError>([&] { query.Post(); });
  EXPECT_EQ(query.state(), QueryState::Insert);
  query.FieldByName(u"NO"_s).set(u"101"_s);
  query.Post();
  EXPECT_EQ(scalar(u"select concat(AD, KISA) from deneme where NO = '101'"_s), u"default7"_s);
}

TEST_F(QueryTest, WhatIsLargerThanThePacketLimitIsRefusedAndTheConnectionStays) {
  openRow(query, insertRow(u"1"_s, u"x"_s));
  edit(query, u"RESIM"_s, QByteArray(70 << 20, 'x'));
  EXPECT_TRUE(raised<EUnstorableValue>([&] { query.Post(); }).message().contains(u"MB"_s));
  query.FieldByName(u"RESIM"_s).set(QByteArray(20 << 20, 'x'));
  query.Post();
  EXPECT_EQ(scalar(u"select length(RESIM) from deneme"_s), QString::number(20 << 20));
}

TEST_F(QueryTest, DeleteRunsTheStatementGivenForIt) {
  const qint64 id = insertRow(u"1"_s, u"x"_s);
  insertRow(u"2"_s, u"y"_s);
  openRow(query, id);
  query.SQLDelete.Add(u"DELETE FROM deneme"_s);
  query.SQLDelete.Add(u"WHERE"_s);
  query.SQLDelete.Add(u"  ID = :Old_ID + YOK"_s);
  EXPECT_EQ(raised<EMyError>([&] { query.Delete(); }).queryText(), query.SQLDelete.text()) << "what failed, not what was read";
  query.SQLDelete.setText(u"DELETE FROM deneme WHERE ID = :Old_ID"_s);
  query.Delete();
  EXPECT_TRUE(query.IsEmpty());
  EXPECT_EQ(scalar(u"select NO from deneme"_s), u"2"_s);
}

TEST_F(QueryTest, CachedChangesSurviveAFailureAndAreWrittenTogether) {
  insertRow(u"1"_s, u"keep"_s);
  insertRow(u"2"_s, u"change"_s);
  insertRow(u"3"_s, u"remove"_s);
  TMyQuery lines(connection, u"qLines"_s);
  lines.CachedUpdates = true;
  lines.SQL.setText(u"select * from deneme order by NO"_s);
  lines.Open();
  lines.setRecNo(2);
  lines.Delete();
  lines.setRecNo(1);
  post(lines, u"AD"_s, u"changed"_s);
  lines.Insert();
  lines.FieldByName(u"NO"_s).set(u"1"_s);
  lines.Post();
  EXPECT_EQ(scalar(u"select group_concat(AD order by NO) from deneme"_s), u"keep,change,remove"_s);

  connection.StartTransaction();
  raised<EMyError>([&] { lines.ApplyUpdates(); });
  connection.Rollback();
  EXPECT_TRUE(lines.UpdatesPending());
  ASSERT_EQ(lines.RecordCount(), 3);
  EXPECT_TRUE(lines.FieldByName(u"ID"_s).isNull());

  post(lines, u"NO"_s, u"4"_s);
  lines.ApplyUpdates();
  lines.RestoreUpdates();
  EXPECT_TRUE(lines.UpdatesPending()) << "applied and taken back";
  run("DELETE FROM deneme WHERE NO='4'");
  run("INSERT INTO deneme (NO, AD) VALUES ('3', 'remove')");
  run("UPDATE deneme SET ID=3 WHERE NO='3'");
  lines.ApplyUpdates();
  lines.CommitUpdates();
  EXPECT_FALSE(lines.UpdatesPending());
  EXPECT_FALSE(lines.FieldByName(u"ID"_s).isNull());
  EXPECT_EQ(scalar(u"select group_concat(NO order by NO) from deneme"_s), u"1,2,4"_s);
  EXPECT_EQ(scalar(u"select AD from deneme where NO='2'"_s), u"changed"_s);
}

TEST_F(QueryTest, CancelledCachedChangesLeaveTheRowsAsTheyWere) {
  insertRow(u"1"_s, u"a"_s);
  insertRow(u"2"_s, u"b"_s);
  TMyQuery lines(connection, u"qLines"_s);
  lines.CachedUpdates = true;
  lines.SQL.setText(u"select * from deneme order by NO"_s);
  lines.Open();
  lines.Delete();
  post(lines, u"AD"_s, u"c"_s);
  lines.Insert();
  lines.CancelUpdates();
  ASSERT_EQ(lines.RecordCount(), 2);
  EXPECT_EQ(TestDatabase::column(lines, u"AD"_s).join(QString()), u"ab"_s);
}

TEST_F(QueryTest, TwoStatementsRunInOneExecutionAndAnErrorInEitherIsRaised) {
  insertRow(u"1"_s, u"x"_s);
  TMyQuery scratch(connection, u"pGetQ"_s);
  scratch.SQL.Add(u"delete from deneme where NO = :NO;"_s);
  scratch.SQL.Add(u"Insert Into deneme (NO, RESIM) VALUES (:NEW, :RESIM);"_s);
  scratch.ParamByName(u"NO"_s) = u"1"_s;
  scratch.ParamByName(u"NEW"_s) = u"2"_s;
  scratch.ParamByName(u"RESIM"_s) = QByteArray::fromHex("ffd8ff00275c22");
  const quint64 before = connection.roundTrips();
  scratch.Execute();
  EXPECT_EQ(connection.roundTrips(), before + 1);
  EXPECT_EQ(scalar(u"select concat(NO, hex(RESIM)) from deneme"_s), u"2FFD8FF00275C22"_s);
  scratch.SQL.setText(u"select 1; select * from yok"_s);
  EXPECT_EQ(raised<EMyError>([&] { scratch.Open(); }).code(), 1146U);
  EXPECT_EQ(scalar(u"select count(*) from deneme"_s), u"1"_s) << "the connection is usable afterwards";
}

TEST_F(QueryTest, NamesThatTheTextLacksRaise) {
  EXPECT_THROW(query.ParamByName(u"YOK"_s), EDatabaseError);
  EXPECT_THROW(query.MacroByName(u"YOK"_s), EDatabaseError);
  query.SQL.setText(u"select &NE from deneme where NO = ':X' &KOSUL"_s);
  query.MacroByName(u"ne"_s) = u"count(*)"_s;
  query.MacroByName(u"KOSUL"_s) = u"or 1=1"_s;
  EXPECT_THROW(query.ParamByName(u"X"_s), EDatabaseError);
  query.Open();
  EXPECT_EQ(query.field(0).asInteger(), 0);
  EXPECT_THROW(query.FieldByName(u"YOK"_s), EDatabaseError);
}

TEST_F(QueryTest, AGuardRollsBackWhatIsNotCommitted) {
  {
    TransactionGuard guard(connection);
    EXPECT_TRUE(connection.InTransaction());
    run("INSERT INTO deneme (NO) VALUES ('1')");
  }
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_EQ(scalar(u"select count(*) from deneme"_s), u"0"_s);
  {
    TransactionGuard guard(connection);
    run("INSERT INTO deneme (NO) VALUES ('1')");
    guard.commit();
  }
  EXPECT_EQ(scalar(u"select count(*) from deneme"_s), u"1"_s);
  // One that is begun inside a transaction takes that over: begun anew, the server would commit what stands in it.
  connection.StartTransaction();
  run("INSERT INTO deneme (NO) VALUES ('2')");
  { TransactionGuard guard(connection); }
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_EQ(scalar(u"select count(*) from deneme"_s), u"1"_s);
}

TEST_F(QueryTest, AnInsertReadsItsVersionBack) {
  insertRow(u"1"_s, u"first"_s);
  database.secondConnection().execute("UPDATE deneme SET AD = 'other'");
  edit(query, u"AD"_s, u"second"_s);
  EXPECT_EQ(raised<EDatabaseError>([this] { query.Post(); }).message(), u"Update failed. Found 0 records"_s);
}

TEST_F(QueryTest, ALockedRowIsWaitedForWithAnObserver) {
  struct : WaitObserver {
    void waitBegins() override { told += u'<'; }
    void waiting() override { ++turns; if (work) work(); }
    void waitEnds() override { told += u'>'; }
    QString told;
    int turns = 0;
    std::function<void()> work;
  } observer;
  const std::unique_ptr<WaitObserver, void (*)(WaitObserver*)> placed(setWaitObserver(&observer), [](WaitObserver* before) { setWaitObserver(before); });
  openRow(query, insertRow(u"1"_s, u"first"_s));
  EXPECT_EQ(scalar(u"select concat(@@innodb_lock_wait_timeout, @@lock_wait_timeout)"_s) + observer.told, u"1010"_s);
  TMyConnection& other = database.secondConnection();
  other.StartTransaction();
  other.execute("UPDATE deneme SET AD = 'other'");

  run("SET SESSION innodb_lock_wait_timeout = 1");
  edit(query, u"AD"_s, u"second"_s);
  QString refused;
  observer.work = [&] { refused = raised<EDatabaseError>([this] { run("SELECT 1"); }).className(); };
  EXPECT_EQ(raised<EMyError>([this] { query.Post(); }).code(), 1205U);
  EXPECT_EQ(observer.told, u"<>"_s);
  EXPECT_GE(observer.turns, 5);
  EXPECT_EQ(refused, u"EDatabaseError"_s) << "a statement within the wait of another";
  EXPECT_EQ(query.state(), QueryState::Edit);

  // Let go within the time, the row is written at once.
  observer.work = [&] { if (other.InTransaction()) other.Rollback(); };
  query.Post();
  EXPECT_EQ(scalar(u"select AD from deneme"_s), u"second"_s);
}

TEST_F(QueryTest, ALostConnectionRaisesAndKeepsTheRowInEdit) {
  openRow(query, insertRow(u"1"_s, u"x"_s));
  edit(query, u"AD"_s, u"typed"_s);
  {
    TransactionGuard guard(connection);
    database.cut(connection);
    const auto error = raised<EMyError>([&] { query.Post(); });
    EXPECT_TRUE(error.code() == 2006 || error.code() == 2013) << error.code();
  }
  EXPECT_FALSE(connection.InTransaction());
  EXPECT_EQ(query.state(), QueryState::Edit);
  EXPECT_EQ(query.FieldByName(u"AD"_s).asText(), u"typed"_s);
  EXPECT_THROW(query.Post(), EMyError) << "no reconnect";
  connection.Close();
  EXPECT_THROW(query.Post(), EDatabaseError);
}

TEST_F(QueryTest, RowsThatAreTheSameAreToldToNobodyAndOthersLeaveTheCursorOnItsRow) {
  struct Listener : QueryListener {
    int resets = 0;
    void queryReset() override { ++resets; }
    void rowChanged(int) override {}
    void rowInserted(int) override {}
    void rowRemoved(int) override {}
    void queryEnds() override {}
  } listener;
  for (const QString& no : {u"2"_s, u"3"_s, u"4"_s}) insertRow(no, no == u"3"_s ? u""_s : u"name"_s);
  query.SQL.setText(u"select * from deneme order by NO"_s);
  query.Open();
  query.setRecNo(1);
  query.addListener(&listener);
  query.refreshIfChanged();
  EXPECT_EQ(listener.resets, 0);
  run("UPDATE deneme SET AD = '' WHERE NO = '3'");  // it was NULL
  query.refreshIfChanged();
  EXPECT_EQ(listener.resets, 1);
  run("INSERT INTO deneme (NO) VALUES ('1')");
  query.refreshIfChanged();
  EXPECT_EQ(query.FieldByName(u"NO"_s).asText(), u"3"_s);
  run("DELETE FROM deneme WHERE NO = '3'");
  query.refreshIfChanged();
  EXPECT_EQ(query.FieldByName(u"NO"_s).asText(), u"4"_s);
  EXPECT_EQ(listener.resets, 3);
  query.removeListener(&listener);
}

TEST_F(QueryTest, SharedRowsAreReadOnceAVersionAndWhatAQueryWritesStaysItsOwn) {
  insertRow(u"1"_s, u"first"_s);
  insertRow(u"2"_s, u"second"_s);
  TMyQuery other(connection, u"other"_s);
  const auto names = [](TMyQuery& of) { return TestDatabase::column(of, u"AD"_s).join(u'|'); };
  for (TMyQuery* each : {&query, &other}) each->SQL.setText(u"select * from deneme order by NO"_s);
  query.OpenShared("1");
  const quint64 before = connection.roundTrips();
  other.OpenShared("1");
  EXPECT_EQ(connection.roundTrips(), before);
  EXPECT_EQ(names(other), u"first|second"_s);

  other.setRecNo(1);
  post(other, u"AD"_s, u"own"_s);
  EXPECT_EQ(names(other) + u' ' + names(query), u"first|own first|second"_s);
  other.OpenShared("2");
  EXPECT_EQ(other.RecNo(), 1);
  query.Close();
  query.OpenShared("2");
  EXPECT_EQ(names(other) + u' ' + names(query), u"first|own first|own"_s);
  other.Delete();
  other.OpenShared("3");
  query.OpenShared("3");
  EXPECT_EQ(names(other) + u' ' + names(query), u"first first"_s);

  // Another connection's rows are no longer what this one may show.
  connection.Close();
  TestDatabase::open(connection);
  run("UPDATE deneme SET AD = 'new'");
  query.OpenShared("3");
  EXPECT_EQ(names(query), u"new"_s);
}

TEST_F(QueryTest, TheVersionIsReadBackEvenWhileItIsNotChecked) {
  query.Options.CheckRowVersion = false;
  openRow(query, insertRow(u"1"_s, u"first"_s));
  for (const QString& name : {u"second"_s, u"third"_s}) {
    post(query, u"AD"_s, name);
    query.Options.CheckRowVersion = true;  // as after a conflict
  }
  run("UPDATE deneme SET AD = 'other'");
  edit(query, u"AD"_s, u"fourth"_s);
  EXPECT_EQ(raised<EDatabaseError>([this] { query.Post(); }).message(), u"Update failed. Found 0 records"_s);
}
