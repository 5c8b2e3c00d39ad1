#include "app/about_box.h"

#include "base/guard.h"
#include "app/quendUtils.h"

#include <QApplication>
#include <QBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

using namespace Qt::StringLiterals;

TfAbout* fAbout = nullptr;

namespace {
constexpr int IconSize = 72;
constexpr int BandWidth = 6;
}  // namespace

TfAbout::TfAbout()
    : QDialog(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      version_(new QLabel(this)),
      system_(new QLabel(this)),
      computer_(new QLabel(this)),
      buttons_(new QWidget(this)) {
  fAbout = this;
  setObjectName(u"fAbout"_s);
  setWindowTitle(QApplication::applicationName());
  auto* icon = new QLabel(this);
  icon->setPixmap(QApplication::windowIcon().pixmap(QSize(IconSize, IconSize), devicePixelRatio()));
  auto* title = new QLabel(QApplication::applicationName(), this);
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * 1.7);
  title->setFont(large);

  auto* close = new QPushButton(u"Kapat"_s, buttons_);
  close->setDefault(true);
  connectGuarded(close, &QPushButton::clicked, this, [this] { accept(); });
  auto* buttonRow = new QHBoxLayout(buttons_);
  buttonRow->setContentsMargins(0, 10, 0, 0);
  buttonRow->addStretch();
  buttonRow->addWidget(close);
  buttons_->hide();

  auto* texts = new QVBoxLayout;
  texts->setSpacing(4);
  texts->addStretch();
  texts->addWidget(title);
  texts->addSpacing(6);
  for (QLabel* line : {version_, system_, computer_}) {
    line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    line->hide();
    texts->addWidget(line);
  }
  texts->addStretch();
  auto* row = new QHBoxLayout;
  row->setSpacing(22);
  row->addWidget(icon, 0, Qt::AlignVCenter);
  row->addLayout(texts, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(28 + BandWidth, 24, 28, 18);
  all->addLayout(row, 1);
  all->addWidget(buttons_);
  setMinimumSize(440, 190);
}

TfAbout::~TfAbout() { fAbout = nullptr; }

void TfAbout::Giris() {
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
  version_->setText(u"Sürüm : "_s + QuendUtil->GetBuildInfoAsString());
  system_->setText(QuendUtil->GetOSVersion());
  computer_->setText(QuendUtil->BilgisayarAdi() + u"  #"_s + QuendUtil->GetRandomAddress());
  for (QWidget* part : std::initializer_list<QWidget*>{version_, system_, computer_, buttons_}) part->show();
  exec();
}

void TfAbout::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.fillRect(QRect(0, 0, BandWidth, height()), palette().color(QPalette::Highlight));
}
