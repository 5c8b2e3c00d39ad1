#include "toolkit/report/preview/page_thumbs.h"

#include "base/guard.h"

#include <QAbstractListModel>
#include <QCache>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int thumbSide = 112;  ///< logical pixels of a page's longer side
constexpr int thumbMargin = 8;
constexpr int keptThumbs = 200;

class PageModel : public QAbstractListModel {
 public:
  PageModel(const PagedDocument& document, QObject* parent) : QAbstractListModel(parent), document_(document) {}
  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : document_.pageCount(); }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) return u"Sayfa %1"_s.arg(index.row() + 1);
    return {};
  }

 private:
  const PagedDocument& document_;
};

class PageDelegate : public QStyledItemDelegate {
 public:
  PageDelegate(const PagedDocument& document, QObject* parent) : QStyledItemDelegate(parent), document_(document), kept_(keptThumbs) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {thumbSide + 2 * thumbMargin, thumbSide + 2 * thumbMargin + option.fontMetrics.height()};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const bool isChosen = option.state & QStyle::State_Selected;
    if (isChosen) painter->fillRect(option.rect, option.palette.highlight());
    const QPixmap& picture = thumb(index.row(), painter->device()->devicePixelRatioF());
    const QSizeF size = picture.deviceIndependentSize();
    const QRect room = option.rect.adjusted(thumbMargin, thumbMargin, -thumbMargin, -option.fontMetrics.height() - thumbMargin / 2);
    const QRectF place(QRectF(room).center() - QPointF(size.width() / 2, size.height() / 2), size);
    painter->drawPixmap(place.topLeft(), picture);
    painter->setPen(option.palette.color(QPalette::Dark));
    painter->drawRect(place);
    painter->setPen(option.palette.color(isChosen ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(option.rect.adjusted(0, 0, 0, -2), Qt::AlignHCenter | Qt::AlignBottom, QString::number(index.row() + 1));
  }

 private:
  const QPixmap& thumb(int page, double ratio) const {
    if (const QPixmap* found = kept_.object(page); found && found->devicePixelRatio() == ratio) return *found;
    const QSizeF paper = document_.pageSize(page);
    const double scale = thumbSide / std::max(paper.width(), paper.height());
    auto* made = new QPixmap((paper * scale * ratio).toSize().expandedTo(QSize(1, 1)));
    made->setDevicePixelRatio(ratio);
    made->fill(Qt::white);
    QPainter painter(made);
    painter.scale(scale, scale);
    document_.paint(painter, page, true);
    painter.end();
    kept_.insert(page, made);
    return *kept_.object(page);
  }

  const PagedDocument& document_;
  mutable QCache<int, QPixmap> kept_;
};

}  // namespace

PageThumbs::PageThumbs(const PagedDocument& document, QWidget* parent) : QListView(parent) {
  setObjectName(u"thumbs"_s);
  setAccessibleName(u"Sayfalar"_s);
  setFrameShape(QFrame::NoFrame);
  setUniformItemSizes(true);
  setModel(new PageModel(document, this));
  setItemDelegate(new PageDelegate(document, this));
  setFixedWidth(thumbSide + 2 * thumbMargin + 20);
  setVerticalScrollMode(ScrollPerPixel);
  connectGuarded(selectionModel(), &QItemSelectionModel::currentChanged, this,
                 [this](const QModelIndex& current, const QModelIndex&) {
                   if (current.isValid()) Q_EMIT pageChosen(current.row());
                 });
}

void PageThumbs::setPage(int page) {
  if (currentIndex().row() != page) setCurrentIndex(model()->index(page, 0));
}
