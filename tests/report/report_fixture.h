#pragma once

#include "tests/report/listed_rows.h"
#include "tests/support/test.h"
#include "toolkit/report/report_file.h"
#include "toolkit/report/report_layout.h"

/// Small reports laid out on paper of 100 by 100 mm with margins of 10 mm, unless a test says otherwise.
class ReportFixture : public testing::Test {
 protected:
  /// Lays out a page with that inside; attributes go to the page.
  ReportPages laidOut(const QByteArray& inside, const QByteArray& attributes = "height=\"100\"") {
    document = ReportFile::read("<report version=\"1\"><page paper=\"own\" width=\"100\" " + attributes + ">" + inside +
                                "</page></report>");
    return layoutReport(document, data, richTexts, QDateTime(QDate(2026, 3, 9), QTime(8, 5)));
  }
  /// The data set "Malzeme" with rows "Parça 1" …, of that many pieces each.
  void fillRows(int count) {
    std::vector<std::vector<ReportValue>> rows;
    for (int row = 0; row < count; ++row)
      rows.push_back({QStringLiteral("Parça %1").arg(row + 1), double(row + 1), row < count / 2 ? QStringLiteral("A") : QStringLiteral("B")});
    data.addRows(QStringLiteral("Malzeme"), std::make_shared<ListedRows>(QStringList{QStringLiteral("AD"), QStringLiteral("ADET"), QStringLiteral("GRUP")}, rows));
  }
  /// The texts of a page from top to bottom, joined by "|".
  static std::string texts(const ReportPage& page) {
    QStringList all;
    for (const TextMark& mark : lines(page)) all += mark.text;
    return all.join(u'|').toStdString();
  }
  static std::vector<TextMark> lines(const ReportPage& page) {
    std::vector<TextMark> all;
    for (const Primitive& primitive : page.primitives)
      if (const auto* mark = std::get_if<TextMark>(&primitive)) all.push_back(*mark);
    std::stable_sort(all.begin(), all.end(), [](const TextMark& one, const TextMark& other) { return one.origin.y() < other.origin.y(); });
    return all;
  }
  /// Top of the first line with that text, in mm; -1 when there is none.
  static double topOf(const ReportPage& page, const QString& text) {
    for (const TextMark& mark : lines(page))
      if (mark.text == text) return mark.origin.y() - mark.ascent;
    return -1;
  }

  ReportDocument document;
  ReportData data;
  RichTexts richTexts;
};
