#pragma once

#include <QDateTime>
#include <QString>

class QWidget;
class TMyQuery;
class Value;

/// The program's common services: dialogs, text rules, facts about machine and process, small ini files, and the binding of
/// fields to controls. One instance, created with the workspace.
class TQuendUtil {
 public:
  /// programFile: full path of the executable; its folder is where the ini files are.
  explicit TQuendUtil(const QString& programFile);

  QString version = QStringLiteral("1.0");
  QString randomText;  ///< tick count at creation
  int port = 8091;
  QString fileName = QStringLiteral("vigil.xml");
  bool flag = false;
  QString programFolder;  ///< with a separator behind it

  /// Modal messages over owner (may be null). The answer is the pressed button: 100 "Tamam", 2 "Vazgeç" or "Kapat".
  int ErrorMesaj(QWidget* owner, const QString& text);
  int NormalMesaj(QWidget* owner, const QString& text);
  int Mesaj(QWidget* owner, const QString& text);
  int mesajTimeOut(QWidget* owner, const QString& text, int milliseconds);
  static constexpr int Confirmed = 100;

  QString BilgisayarAdi() const;
  QString BilgisayarIP() const;
  bool processExists(const QString& name) const;
  bool WindowExists(const QString& windowClass) const;
  QString GetOSVersion() const;
  /// Twelve capital hexadecimal digits, new each time, as the last six bytes of a fresh GUID.
  QString GetRandomAddress() const;
  QString GetBuildInfoAsString() const;
  QString FileVersionInfo(const QString& file, const QString& key) const;
  /// Throws EInOutError for a missing file and for a folder.
  QDateTime FileLastModified(const QString& file) const;
  /// NULL and empty text give 0. Throws EConvertError for a text that is no whole number, or one beyond 32 bits.
  int VarToInt(const Value& value) const;

  QChar BuyukHarf(QChar letter) const;
  QString LoginTrBuyukHarf(const QString& text) const;
  QString LoginTrPassword(const QString& text) const;
  QString Numarator(const QString& text) const;
  QString TarihRotate(const QString& date) const;
  QString StrToFloat_Universal(const QString& text) const;
  QString GetValue(const QString& text, int index) const;
  int CalcStrChecksum(const QString& text, bool less65) const;
  QString DeleteLineBreaks(const QString& text) const;

  /// The file is name with ".ini" behind it in the program folder. Saving throws EInOutError; a missing file loads as an
  /// empty text, an empty value as "-1".
  void save_inifile(const QString& name, const QString& section, const QString& value, const QString& key);
  QString load_inifile(const QString& name, const QString& section, const QString& fallback, const QString& key) const;

  void EkrandanAlanlara(QWidget& form, TMyQuery& dataset);
  void AlanlardanEkrana(QWidget& form, TMyQuery& dataset);
  void EkranReset(QWidget& form, TMyQuery& dataset);
};

/// The one instance; null before the workspace is created.
extern TQuendUtil* QuendUtil;
