#include "toolkit/report/designer/fault_list.h"

#include "base/guard.h"
#include "toolkit/report/designer/design_canvas.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int restMs = 400;

/// A narrow list breaks names behind their underlines.
QString breakable(QString text) { return text.replace(u'_', u"_\u200B"_s); }

}  // namespace

FaultList::FaultList(DesignCanvas& canvas, const DesignSample& sample, QWidget* parent)
    : QListWidget(parent), canvas_(canvas), sample_(sample), rest_(new QTimer(this)) {
  setObjectName(u"faults"_s);
  setAccessibleName(u"Hatalar"_s);
  setFrameShape(NoFrame);
  setWordWrap(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setResizeMode(Adjust);
  setAlternatingRowColors(true);
  rest_->setSingleShot(true);
  rest_->setInterval(restMs);
  connectGuarded(rest_, &QTimer::timeout, this, [this] { search(); });
  // Nodes that are gone are not looked at any more, whatever the list still shows.
  const auto later = [this] {
    faults_.clear();
    rest_->start();
  };
  ReportEditor& editor = canvas.editor();
  connectGuarded(&editor, &ReportEditor::changed, this, [this] { rest_->start(); });
  connectGuarded(&editor, &ReportEditor::inserted, this, [this] { rest_->start(); });
  connectGuarded(&editor, &ReportEditor::removed, this, later);
  connectGuarded(&editor, &ReportEditor::replaced, this, later);
  connectGuarded(&editor, &ReportEditor::pageShown, this, [this] { rest_->start(); });
  connectGuarded(this, &QListWidget::itemClicked, this, [this](const QListWidgetItem* item) { goTo(row(item)); });
  connectGuarded(this, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) { goTo(row(item)); });
}

void FaultList::search() {
  rest_->stop();
  faults_ = findFaults(canvas_.editor().document(), sample_);
  clear();
  std::vector<const ReportNode*> marked;
  for (const DesignFault& fault : faults_) {
    const QString told = u"%1: %2"_s.arg(shownName(*fault.node), fault.reason);
    auto* item = new QListWidgetItem(QIcon::fromTheme(fault.isNotice ? u"dialog-warning"_s : u"dialog-error"_s), breakable(told), this);
    item->setToolTip(told);
    if (!fault.isNotice) marked.push_back(fault.node);
  }
  if (faults_.empty()) {
    addItem(u"Hata bulunmadı."_s);
    item(0)->setFlags(Qt::NoItemFlags);
  }
  canvas_.markFaults(marked);
  Q_EMIT searched(int(faults_.size()));
}

void FaultList::goTo(int row) {
  if (row < 0 || size_t(row) >= faults_.size()) return;
  const ReportNode* wanted = faults_[size_t(row)].node;
  ReportEditor& editor = canvas_.editor();
  const auto find = [&](const auto& self, ReportNode& node) -> ReportNode* {
    if (&node == wanted) return &node;
    for (const auto& child : node.children())
      if (ReportNode* found = self(self, *child)) return found;
    return nullptr;
  };
  ReportNode* found = find(find, editor.root());
  if (!found) return;
  if (ReportNode* page = pageOf(found)) editor.showPage(*page);
  editor.select(found);
  canvas_.ensureSeen(*found);
}
