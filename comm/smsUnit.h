#pragma once

#include "app/kept_fields.h"
#include "comm/http_client.h"
#include "comm/sms_sequences.h"

#include <QDialog>

#include <optional>

class ComboEdit;
class MemoEdit;
class QLabel;
class QListWidget;
class QPushButton;
class QTabWidget;
class TextEdit;

/// "SMS Ayarları": gateway, account, sender and the two templates. Everything that sends reads what stands in its controls at
/// that moment, saved or not: meant.
class TfSMS : public QDialog {
  Q_OBJECT
 public:
  explicit TfSMS(QWidget* parent = nullptr);
  ~TfSMS() override;

  static constexpr int Saved = 6;
  static constexpr int GivenUp = 2;

  /// Reads what Sms.ini keeps. Needs the utilities object.
  void LoadParams();
  /// LoadParams, then the form, modally; Saved or GivenUp.
  int Giris();

  /// What stands in the controls, with the gateways' addresses.
  SmsSettings settings() const;

  HttpClient iHTTP;  ///< of everybody who sends

  ComboEdit* servis;
  TextEdit* sKullanici;
  TextEdit* sParola;
  ComboEdit* sProfil;
  MemoEdit* smsMESAJAK;
  MemoEdit* SmsMesajTam;
  QListWidget* ParamList;
  QListWidget* ParamList2;
  QLabel* SayPan;
  QLabel* SayTPan;
  QLabel* uyariPan;
  QLabel* mevcutKontor;
  QPushButton* SpeedButton1;
  QPushButton* btnPost;

  void reject() override { done(GivenUp); }

 private:
  QWidget* buildAccount();
  QTabWidget* buildTemplates();
  void signIn();
  void btnPostClick();

  std::optional<KeptFields> kept_;
};

/// The one instance; null before it is created and after it is gone.
extern TfSMS* fSMS;
