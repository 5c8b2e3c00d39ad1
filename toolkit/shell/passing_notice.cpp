#include "toolkit/shell/passing_notice.h"

#include "base/guard.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QStyle>
#include <QSystemTrayIcon>
#include <QVBoxLayout>

#include <functional>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int panelWidth = 340;
constexpr int edgeDistance = 16;
constexpr qsizetype longestTitle = 120;
constexpr qsizetype longestBody = 600;
constexpr qsizetype mostLines = 8;

/// What can be shown of a text of any length and characters.
QString shownText(QString text, qsizetype longest) {
  text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
  text = text.split(u'\n').mid(0, mostLines).join(u'\n');
  if (text.size() > longest) text = text.left(longest - 1) + u'…';
  for (QChar& letter : text)
    if (letter != u'\n' && !letter.isPrint() && !letter.isSurrogate()) letter = u' ';
  return text;
}

class Panel : public QFrame {
 public:
  Panel(QWidget* owner, std::function<void()> clicked)
      : QFrame(owner, Qt::ToolTip | Qt::FramelessWindowHint), clicked_(std::move(clicked)), title_(new QLabel(this)), body_(new QLabel(this)) {
    setObjectName(u"passingNotice"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusPolicy(Qt::NoFocus);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    setAutoFillBackground(true);
    title_->setObjectName(u"passingNoticeTitle"_s);
    body_->setObjectName(u"passingNoticeBody"_s);
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    auto* icon = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(size));
    icon->setAlignment(Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    for (QLabel* label : {title_, body_}) {
      label->setTextFormat(Qt::PlainText);
      label->setWordWrap(true);
      label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a long word is cut, not the notice widened
      label->setForegroundRole(QPalette::ToolTipText);
      texts->addWidget(label);
    }
    texts->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setSizeConstraint(QLayout::SetNoConstraint);
    row->addWidget(icon);
    row->addLayout(texts, 1);
    for (QLabel* label : {icon, title_, body_}) label->setAttribute(Qt::WA_TransparentForMouseEvents);
  }

  void setTexts(const QString& title, const QString& body, const QRect& screen) {
    title_->setText(title);
    body_->setText(body);
    setAccessibleName(title);
    setAccessibleDescription(body);
    const int tall = qMin(layout()->heightForWidth(panelWidth), screen.height() / 2);
    setGeometry(screen.right() - panelWidth - edgeDistance, screen.bottom() - tall - edgeDistance, panelWidth, tall);
  }

 protected:
  void mousePressEvent(QMouseEvent*) override { guarded(this, clicked_); }

 private:
  std::function<void()> clicked_;
  QLabel* title_;
  QLabel* body_;
};

}  // namespace

PassingNotice::PassingNotice(QWidget* window, QSystemTrayIcon* tray) : QObject(window), window_(window), tray_(tray) {
  pause_.setSingleShot(true);
  connectGuarded(&pause_, &QTimer::timeout, this, [this] { pass(); });
  if (tray_) connectGuarded(tray_.data(), &QSystemTrayIcon::messageClicked, this, [this] { pass(); });
}

PassingNotice::~PassingNotice() { delete panel_; }

void PassingNotice::show(const QString& title, const QString& body, int milliseconds) {
  isUp_ = true;
  pause_.start(milliseconds);
  const QString shownTitle = shownText(title, longestTitle);
  const QString shownBody = shownText(body, longestBody);
  if (tray_ && tray_->isVisible() && QSystemTrayIcon::supportsMessages()) {
    tray_->showMessage(shownTitle, shownBody, QSystemTrayIcon::Information, milliseconds);
    return;
  }
  if (!panel_) panel_ = new Panel(window_, [this] { pass(); });
  static_cast<Panel*>(panel_.data())->setTexts(shownTitle, shownBody, window_->screen()->availableGeometry());
  panel_->show();
}

void PassingNotice::pass() {
  if (!std::exchange(isUp_, false)) return;
  pause_.stop();
  if (panel_) panel_->close();
  panel_.clear();
  Q_EMIT passed();
}
