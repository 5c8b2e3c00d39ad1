#pragma once

#include "app/kept_fields.h"
#include "comm/mail_sequences.h"

#include <QDialog>

#include <optional>

class ComboEdit;
class MemoEdit;
class QListWidget;
class QPushButton;
class TextEdit;

/// "E-Posta Ayarları": the mail account and the template of the customer's notice. SendeMail reads what stands in its controls
/// at that moment, saved or not: meant.
class TfEPOSTA : public QDialog {
  Q_OBJECT
 public:
  explicit TfEPOSTA(QWidget* parent = nullptr);
  ~TfEPOSTA() override;

  static constexpr int Saved = 6;
  static constexpr int GivenUp = 2;

  /// Reads Smtp.ini and smtpsablon.txt beside the program. Throws EInOutError for a template that cannot be read.
  void LoadParams();
  /// LoadParams, then the form, modally; Saved or GivenUp.
  int Giris();

  bool IsValidEmail(const QString& text) const { return isValidEmail(text); }
  /// Sends body in the name of the sender address and under the subject that stand here; the window stays painted meanwhile and
  /// input waits. True when it went out; why it did not stands in the log alone.
  bool SendeMail(const QString& body, const QString& recipient, int authMode, int port, const QString& host,
                 const QString& password, const QString& userName);
  /// What stands in the controls, but for the port.
  MailSettings account() const;
  /// Throws EConvertError for a port that is no number.
  int port() const;

  TextEdit* eSMTPName;
  TextEdit* eSMTPUserName;
  TextEdit* eSMTPPassword;
  TextEdit* eSMTPPORT;
  ComboEdit* eSMTPAUTH;
  TextEdit* eSMTPOWNER;
  TextEdit* eSubject;
  MemoEdit* eSMTPTEMPLATE;
  QListWidget* ParamList;
  QPushButton* SpeedButton1;
  QPushButton* btnPost;

  void reject() override { done(GivenUp); }

 private:
  QWidget* buildAccount();
  void eSMTPOWNERExit();
  void sendTest();
  void btnPostClick();

  std::optional<KeptFields> kept_;
};

/// The one instance; null before it is created and after it is gone.
extern TfEPOSTA* fEPOSTA;
