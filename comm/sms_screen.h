#pragma once

#include "comm/sms_sequences.h"

#include <functional>

class HttpClient;
class QLabel;
class QWidget;

/// A window that speaks to a gateway through its client: the window stays painted meanwhile and input waits, messages stand
/// over it. The base of everything that sends from a screen.
template <class Sequence>
class SmsOverWindow : public Sequence {
 public:
  SmsOverWindow(QWidget* window, HttpClient& client) : window_(window), client_(client) {}

  HttpAnswer exchange(const HttpRequest& request) override;
  void errorMessage(const QString& text) override;
  void note(const Exception& cause) override;
  void plainMessage(const QString& text) override;
  void confirm(const QString& text) override;

 protected:
  QWidget* window() const { return window_; }

 private:
  QWidget* window_;
  HttpClient& client_;
};

/// A window with a banner that asks a gateway for senders and balance.
class SmsScreen : public SmsOverWindow<SmsSession> {
 public:
  SmsScreen(QWidget* window, HttpClient& client, QLabel* banner) : SmsOverWindow(window, client), banner_(banner) {}

  void setBanner(const QString& text) override;
  void showBanner(bool isShown) override;
  void runMessageLoop() override;
  void pause(int milliseconds) override;
  void showSenders(const QStringList& names) override { if (onSenders) onSenders(names); }
  void showBalance(const QString& line) override { if (onBalance) onBalance(line); }
  void showRecipients(const QString& text) override { if (onRecipients) onRecipients(text); }

  std::function<void(const QStringList& names)> onSenders;
  std::function<void(const QString& line)> onBalance;
  std::function<void(const QString& text)> onRecipients;

 private:
  QLabel* banner_;
};
