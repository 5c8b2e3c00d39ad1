#pragma once

#include "toolkit/report/report_document.h"
#include "toolkit/report/report_expression.h"
#include "toolkit/report/report_pages.h"
#include "toolkit/report/rich_text.h"
#include "toolkit/report/text_lines.h"

#include <QHash>

/// Rich texts that take the place of what stands in the template, by name of their object.
using RichTexts = QHash<QString, RichText>;

/// An object of a template, read once for a whole run.
struct LayoutObject {
  explicit LayoutObject(const ReportNode& object);

  const ReportNode* node;
  NodeKind kind;
  QString name;
  QRectF rect;  ///< within its band
  std::optional<Expression> visible;
  std::optional<Expression> checked;
  ExpressionText text;
  QString format;
  ReportFont fontInfo;
  QFont font;
  QColor color;
  QImage picture;
  bool grows = false;
  bool shrinks = false;
  bool stretches = false;
  int rotation = 0;
  double padding = 0;
  double lineSpacing = 1;
  bool usesPageCount = false;
};

/// A text that is put down when the number of pages is known.
struct PendingText {
  QRectF rect;
  const LayoutObject* object = nullptr;
  EvaluationContext context;
  std::vector<RowPlace> places;
};

/// What an object comes to with the data of one place, before it is known how high it becomes.
struct MeasuredObject {
  const LayoutObject* object = nullptr;
  bool isVisible = true;
  double height = 0;  ///< that it needs, or that it has
  QString text;
  BrokenText lines;
  QFont font;
  std::vector<Primitive> rich;
  std::vector<double> pageStarts;
  std::vector<KeptRange> kept;
  QStringList faults;
  QStringList notices;
};

/// richTexts may be null.
MeasuredObject measure(const LayoutObject& object, const EvaluationContext& context, const RichTexts* richTexts);

/// Puts an object's primitives into its final rectangle. Adds faults that painting finds to the object's.
void place(MeasuredObject& measured, const QRectF& rect, std::vector<Primitive>& primitives);
