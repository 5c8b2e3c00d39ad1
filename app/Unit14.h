#pragma once

#include <QDialog>

#include <exception>

class ButtonEdit;
class QPushButton;
class TextEdit;

/// The login: turns what is typed into a database account and connects; also hosts the application's handler for errors
/// that nobody caught, and the log file.
class TLogin_Form : public QDialog {
  Q_OBJECT
 public:
  TLogin_Form();
  ~TLogin_Form() override;

  TextEdit* Kullanici;  ///< its text is the current user's name for all of the program
  TextEdit* parola;
  ButtonEdit* eSunucu;
  QPushButton* Tamam_Button;
  QPushButton* RzBitBtn2;
  int Tag = 0;

  /// Shows the form modally: 6 after a successful connection, 2 when the user gives up.
  int ShowModal();
  static constexpr int Connected = 6;
  static constexpr int GivenUp = 2;

  /// Appends a line to the log file; error may be null.
  static void Log(const QString& message, const std::exception* error = nullptr);

  /// Handler for what nobody caught: logs, and shows unless the sender is a label (a mark for the log only) or
  /// ApplicationEvents1Tag is not 0; then sets that to 0.
  void ApplicationEvents1Exception(QObject* sender, const std::exception& error);
  int ApplicationEvents1Tag = 0;

  void reject() override { done(GivenUp); }

 private:
  void buildForm();
  void formShow();
  bool serviceRuns() const;
  void tamamButtonClick();
  void connectToServer();
  void connectionFailed(const std::exception& error);
  void chooseServer();

  unsigned char failedAttempts_ = 0;
};

/// The one login form; null before it is created and after it is gone.
extern TLogin_Form* Login_Form;
