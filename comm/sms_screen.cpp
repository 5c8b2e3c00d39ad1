#include "comm/sms_screen.h"

#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/environment.h"
#include "comm/http_client.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/shell/waiting_run.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLabel>

using namespace Qt::StringLiterals;

template <class Sequence>
HttpAnswer SmsOverWindow<Sequence>::exchange(const HttpRequest& request) {
  return resultWhileWaiting([&] { return client_.exchange(request); });
}

template <class Sequence>
void SmsOverWindow<Sequence>::errorMessage(const QString& text) {
  QuendUtil->ErrorMesaj(window_, text);
}

template <class Sequence>
void SmsOverWindow<Sequence>::note(const Exception& cause) {
  logMessage(u"SMS servis sağlayıcı ile bağlantı kurulamadı"_s, &cause);
}

template <class Sequence>
void SmsOverWindow<Sequence>::plainMessage(const QString& text) {
  showPlainMessage(window_, TaskIcon::None, text);
}

template <class Sequence>
void SmsOverWindow<Sequence>::confirm(const QString& text) {
  QuendUtil->NormalMesaj(window_, text);
}

template class SmsOverWindow<SmsSender>;
template class SmsOverWindow<SmsSession>;

void SmsScreen::setBanner(const QString& text) { banner_->setText(text); }
void SmsScreen::showBanner(bool isShown) { banner_->setVisible(isShown); }
void SmsScreen::runMessageLoop() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

void SmsScreen::pause(int milliseconds) {
  runWhileWaiting([milliseconds] { environment().sleep(milliseconds); });
}
