#include "base/data/value.h"
#include "bench/gallery/scene.h"

#include "base/data/my_query.h"
#include "cards/card_columns.h"
#include "cards/card_store.h"
#include "service/slip_tables.h"
#include "toolkit/grid/data_grid.h"
#include "toolkit/grid/filter_cell.h"
#include "toolkit/grid/filter_row.h"
#include "toolkit/grid/grid_model.h"
#include "toolkit/grid/grid_preview.h"
#include "toolkit/grid/grid_view.h"

#include <QLineEdit>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A grid over the slips with work done on it before the picture.
QImage slips(TMyConnection& connection, const std::function<void(DataGrid&)>& work, QSize size = {1180, 460},
             const QString& where = {}) {
  TMyQuery query(connection, u"qGallery"_s);
  query.SQL.setText(u"select * from teknikservis "_s + where);
  query.Open();
  DataGrid grid(query, SlipTables::browserColumns(), u"Fişler"_s);
  grid.setFilterRow(true);
  grid.setFilterUpperCase(true);
  grid.setGroupArea(true);
  grid.setMultiSelect(true);
  grid.setRowColor([&query](int row) { return row % 7 == 3 ? QColor(0xc0, 0x30, 0x30) : row % 7 == 5 ? QColor(0x1b, 0x80, 0x40) : QColor(); });
  grid.resize(size);
  Gallery::bringUp(grid);
  grid.view()->setFocus();
  grid.goToFirstRow();
  work(grid);
  return Gallery::picture(grid);
}

QImage openedMenu(TMyConnection& connection) {
  QImage image;
  slips(connection, [&](DataGrid& grid) {
    QMenu menu(&grid);
    grid.fillHeaderMenu(menu, u"TS_TURU"_s);
    menu.popup(grid.mapToGlobal(QPoint(420, 90)));
    image = Gallery::picture(grid);
  });
  return image;
}

/// The slips of the grid as they go on paper.
QImage preview(TMyConnection& connection) {
  QImage image;
  slips(connection, [&](DataGrid& grid) {
    grid.setGrouping({u"TS_TURU"_s});
    grid.setAllExpanded(true);
    GridPreviewRequest request;
    request.texts = {u"Servis Fişleri"_s, u"Müşteri Listesi Raporu"_s, u"[Date & Time Printed]"_s, u"Torvane Teknik Servis Programı"_s,
                     u" Sayfa: [Page #]-[Total Pages]"_s};
    request.exportToExcel = [](QWidget*) {};
    GridPreview shown(nullptr, grid.content(false), request);
    grid.hide();
    Gallery::bringUp(shown);
    image = Gallery::picture(shown);
  });
  return image;
}

/// Service types, edited in place.
QImage editedInPlace(TMyConnection& connection, const std::function<void(DataGrid&)>& work) {
  TMyQuery query(connection, u"qGallery"_s);
  CardStore::setUpServiceTypes(query);
  query.Open();
  for (int i = query.RecordCount(); i < 4; ++i) {
    query.Append();
    query.FieldByName(u"SERVIS_AD"_s).set(u"SERVİS TİPİ %1"_s.arg(i + 1));
    query.Post();
  }
  DataGrid grid(query, {CardColumns::edited(CardColumns::stretching(u"SERVIS_AD"_s, u"SERVİS ADI"_s, 320))}, u"Servis Tipleri"_s);
  grid.setEditing(GridEditing::NewItemRow);
  grid.resize(460, 300);
  Gallery::bringUp(grid);
  grid.view()->setFocus();
  grid.goToFirstRow();
  work(grid);
  const QImage image = Gallery::picture(grid);
  query.Cancel();
  return image;
}

}  // namespace

std::vector<Scene> Gallery::gridScenes(TMyConnection& connection) {
  const auto scene = [&connection](const QString& name, const std::function<void(DataGrid&)>& work, QSize size = {1180, 460},
                                   const QString& where = {}) {
    return Scene{u"grid-"_s + name, [&connection, work, size, where] { return slips(connection, work, size, where); }};
  };
  const auto inPlace = [&connection](const QString& name, const std::function<void(DataGrid&)>& work) {
    return Scene{u"grid-"_s + name, [&connection, work] { return editedInPlace(connection, work); }};
  };
  return {
      scene(u"plain"_s, [](DataGrid&) {}),
      scene(u"narrow"_s, [](DataGrid&) {}, {520, 320}),
      scene(u"empty"_s, [](DataGrid&) {}, {1180, 320}, u"where TS_ID < 0"_s),
      scene(u"filtered"_s, [](DataGrid& grid) { grid.setColumnFilter(u"TS_MUSTERI"_s, FilterOperator::Contains, u"A"_s); }),
      scene(u"filter-being-typed"_s,
            [](DataGrid& grid) {
              grid.filterRow()->cell(grid.model()->columnOf(u"TS_MUSTERI"_s))->line()->setFocus();
              Gallery::type(u"fat"_s);
              QTest::qWait(400);
            }),
      scene(u"filter-finds-nothing"_s,
            [](DataGrid& grid) { grid.setColumnFilter(u"TS_MUSTERI"_s, FilterOperator::Contains, u"QXW"_s); }),
      scene(u"filter-off"_s,
            [](DataGrid& grid) {
              grid.setColumnFilter(u"TS_MUSTERI"_s, FilterOperator::Contains, u"A"_s);
              grid.setFilterEnabled(false);
            }),
      scene(u"grouped"_s,
            [](DataGrid& grid) {
              grid.setGrouping({u"TS_TURU"_s, u"TS_TARIH"_s});
              grid.setAllExpanded(true);
            }),
      scene(u"groups-closed"_s, [](DataGrid& grid) { grid.setGrouping({u"TS_TURU"_s}); }),
      scene(u"sorted"_s, [](DataGrid& grid) { grid.setOrder({{u"TS_MUSTERI"_s, false}, {u"TS_TARIH"_s, true}}); }),
      scene(u"column-chooser"_s, [](DataGrid& grid) { grid.openColumnChooser(); }),
      {u"grid-header-menu"_s, [&connection] { return openedMenu(connection); }},
      scene(u"multi-select"_s,
            [](DataGrid& grid) {
              for (int i = 0; i < 4; ++i) QTest::keyClick(grid.view(), Qt::Key_Down, Qt::ShiftModifier);
            }),
      scene(u"incremental-search"_s,
            [](DataGrid& grid) {
              const int column = grid.model()->columnOf(u"TS_MUSTERI"_s);
              grid.view()->setCurrentIndex(grid.model()->index(0, column));
              Gallery::type(u"İS"_s);
            }),
      {u"grid-preview"_s, [&connection] { return preview(connection); }},
      inPlace(u"new-item-row"_s, [](DataGrid&) {}),
      inPlace(u"new-item-typed"_s,
              [](DataGrid& grid) {
                QTest::keyClick(grid.view(), Qt::Key_Insert);
                QTest::qWait(50);
                Gallery::type(u"yazıcı bakımı"_s);
              }),
      inPlace(u"cell-edited"_s,
              [](DataGrid& grid) {
                QTest::keyClick(grid.view(), Qt::Key_F2);
                QTest::qWait(50);
                Gallery::type(u"ONARIM"_s);
              }),
  };
}
