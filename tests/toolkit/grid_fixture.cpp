#include "tests/toolkit/grid_fixture.h"

void GridTest::SetUp() {
  QueryTest::SetUp();
  query.SQL.setText(u"select * from deneme order by ID"_s);
}

void GridTest::TearDown() {
  watch.reset();
  grid.reset();
  QueryTest::TearDown();
}

std::vector<GridColumn> GridTest::columns() {
  GridColumn id{.field = u"ID"_s, .caption = u"KAYIT"_s, .visible = false, .offered = false};
  GridColumn no{.field = u"NO"_s, .caption = u"NO"_s, .width = 70};
  no.summary = GridSummary::Count;
  no.summaryFormat = u",0 Kayıt"_s;
  no.groupSummary = GridSummary::Count;
  no.groupSummaryFormat = u",0 Kayıt"_s;
  GridColumn name{.field = u"AD"_s, .caption = u"MÜŞTERİ ADI"_s, .width = 180};
  GridColumn amount{.field = u"TUTAR"_s, .caption = u"TUTAR"_s, .width = 110, .displayFormat = u",0.00;-,0.00"_s};
  amount.summary = amount.groupSummary = GridSummary::Sum;
  amount.summaryFormat = u",0.00;-,0.00"_s;
  amount.groupSummaryFormat = u",0.00 TL;-,0.00 TL"_s;
  GridColumn date{.field = u"TARIH"_s, .caption = u"TARİH"_s, .width = 90};
  GridColumn moment{.field = u"AN"_s, .caption = u"İŞLEM ZAMANI"_s, .width = 130, .visible = false};
  GridColumn state{.field = u"KISA"_s, .caption = u"DURUM"_s, .width = 90};
  state.values = {{u"1"_s, u"AÇIK"_s}, {u"2"_s, u"KAPALI"_s}};
  return {id, no, name, amount, date, moment, state};
}

void GridTest::fill() {
  run("INSERT INTO deneme (NO, AD, TUTAR, TARIH, AN, KISA) VALUES "
      "('1', _latin5 x'DD53544158', 10, '2026-03-05', '2026-03-05 10:00:00', 1),"
      "('2', _latin5 x'C7494E4152', 20.5, '2026-03-06', '2026-03-06 23:59:59', 2),"
      "('3', 'CAN', 20.5, '2026-04-01', '2026-03-07 00:00:00', 1),"
      "('4', 'ZEKI \"K\" O\\'NEIL', -5, NULL, NULL, NULL),"
      "('5', _latin5 x'FE656B6572', 1250, '2025-12-31', NULL, 2),"
      "('6', NULL, NULL, '2026-03-05', NULL, 1)");
}

QStringList GridTest::allNamesWith(const QString& more) {
  QStringList names{u"İSTAX"_s, u"ÇINAR"_s, u"CAN"_s, u"ZEKI \"K\" O'NEIL"_s, u"şeker"_s, QString()};
  if (!more.isEmpty()) names += more;
  return names;
}

void GridTest::show(std::vector<GridColumn> shown) {
  grid = std::make_unique<DataGrid>(query, std::move(shown), u"Denemeler"_s);
  watch = std::make_unique<QAbstractItemModelTester>(grid->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
  grid->setEmptyText(u"<Kayıt yok!>"_s);
  grid->resize(720, 320);
  grid->show();
  grid->activateWindow();
  query.Open();
  grid->setFocus();
  QCoreApplication::processEvents();
}

QStringList GridTest::lines(const QString& field) const {
  const GridModel* model = grid->model();
  QStringList texts;
  for (int line = 0; line < model->rowCount(); ++line) {
    const GridRow row = model->row(line);
    const QString text = model->index(line, model->columnOf(field)).data().toString();
    if (row.kind == GridRowKind::Group)
      texts += u'[' + model->index(line, 0).data().toString() + u']';
    else
      texts += (row.kind == GridRowKind::GroupFooter ? u"="_s : row.kind == GridRowKind::NewItem ? u"+"_s : QString()) + text;
  }
  return texts;
}

QWidget* GridTest::target() const {
  QWidget* focused = QApplication::focusWidget();
  return focused != nullptr && grid->isAncestorOf(focused) ? focused : grid->view();
}

QModelIndex GridTest::cell(int line, const QString& field) const { return grid->model()->index(line, grid->model()->columnOf(field)); }
