#pragma once

#include "comm/sms_sequences.h"

#include <QDialog>

class ComboEdit;
class MemoEdit;
class QGroupBox;
class QKeyEvent;
class QLabel;
class QPushButton;
class QTimer;
class TextEdit;

/// "SMS Gönder": one text to one or many numbers, through the gateway of the settings screen and with its saved sender; the
/// sender that is chosen here has no effect: meant.
class TsmsYollaForm : public QDialog {
  Q_OBJECT
 public:
  explicit TsmsYollaForm(QWidget* parent = nullptr);
  ~TsmsYollaForm() override;

  static constexpr int GivenUp = 2;
  static constexpr int Sent = 6;

  /// Shows the form modally with numbers, joined by commas, as recipients; the message is the one of the last use. Needs the
  /// SMS settings screen.
  void Giris(const QString& numbers);

  TextEdit* ALICITEL;
  ComboEdit* TS_TURU;
  MemoEdit* smsMESAJ;
  QLabel* SayPan;
  QLabel* uyariPan;
  QGroupBox* cxGroupBox1;
  QTimer* Timer1;  ///< starts the opening sequence once the form is on the screen
  QPushButton* btnPost;

  void reject() override { done(GivenUp); }

 private:
  void buildForm();
  QWidget* buildInformation();
  bool dropsRecipientKey(const QKeyEvent& key) const;
  void leaveRecipients();
  void openSequence();
  void btnPostClick();

  BulkMemory memory_;
};

/// The one instance; null before it is created and after it is gone.
extern TsmsYollaForm* smsYollaForm;
