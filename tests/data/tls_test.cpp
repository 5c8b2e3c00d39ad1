#include "base/exceptions.h"
#include "tests/support/test.h"
#include "tests/support/test_database.h"

namespace {

/// A loopback address of this run alone: a neighbour of its database's.
QString ownAddress() {
  QStringList parts = qEnvironmentVariable("KVTK_TEST_SERVER", u"127.0.0.42"_s).split(u'.');
  parts[1] = QString::number(parts[1].toInt() + 20);
  return parts.join(u'.');
}

/// A server of its own that offers TLS.
class TlsServer : public testing::Test {
 protected:
  const QString address = ownAddress();
  TlsServer() {
    environment.insert(u"KVTK_HOME"_s, folder.path());
    environment.insert(u"KVTK_BIND"_s, address);
    environment.insert(u"KVTK_DAILY"_s, u"off"_s);
    const QString key = folder.filePath(u"key.pem"_s);
    const QString certificate = folder.filePath(u"certificate.pem"_s);
    environment.insert(u"KVTK_SERVER_OPTIONS"_s, u"--ssl-cert=%1 --ssl-key=%2"_s.arg(certificate, key));
    run(u"openssl"_s, {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-nodes"_s, u"-subj"_s, u"/CN=test"_s, u"-keyout"_s, key, u"-out"_s, certificate});
    fingerprint = run(u"openssl"_s, {u"x509"_s, u"-in"_s, certificate, u"-noout"_s, u"-fingerprint"_s, u"-sha1"_s}).section(u'=', 1).trimmed();
    run(QString::fromUtf8(KVTK_SERVER_TOOL), {u"create"_s});
    run(QString::fromUtf8(KVTK_SERVER_TOOL), {u"start"_s});
    TestDatabase::aim(connection);
    connection.Server = address;
  }
  ~TlsServer() override {
    connection.Close();
    run(QString::fromUtf8(KVTK_SERVER_TOOL), {u"stop"_s});
  }

  QString run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000) && process.exitCode() == 0) << program.toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
  }

  static std::string refusal(TMyConnection& to) {
    try {
      to.Connect();
    } catch (const EMyError& error) {
      return QString::fromUtf8(error.what()).toStdString();
    }
    return "connected";
  }

  QTemporaryDir folder;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  QString fingerprint;
  TMyConnection connection;
};

TEST_F(TlsServer, IsTalkedToByTlsAndKnownByItsFingerprint) {
  connection.Connect();
  EXPECT_TRUE(connection.Encrypted());
  connection.CertificateFingerprint = fingerprint;
  connection.Connect();
  EXPECT_TRUE(connection.Encrypted());
  connection.execute("SELECT 1");
  connection.CertificateFingerprint[0] = fingerprint[0] == u'A' ? u'B' : u'A';
  EXPECT_THAT(refusal(connection), testing::HasSubstr("Sunucunun sertifikası değişmiş"));
  EXPECT_FALSE(connection.Connected());

  TestDatabase plain;
  EXPECT_FALSE(plain.connection().Encrypted());
  plain.connection().CertificateFingerprint = fingerprint;
  EXPECT_THAT(refusal(plain.connection()), testing::HasSubstr("şifreli bağlantı sunmuyor"));
}

}  // namespace
