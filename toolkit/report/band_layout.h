#pragma once

#include "toolkit/report/object_layout.h"

/// A band of a template, read once for a whole run.
struct LayoutBand {
  explicit LayoutBand(const ReportNode& band);

  const ReportNode* node;
  QString kind;  ///< word of the property
  double height = 0;
  std::optional<Expression> visible;
  std::vector<LayoutObject> objects;
  bool flag(QStringView property) const { return node->flag(property); }
};

/// A band with the data of one place: primitives from the band's upper left corner.
struct BandBox {
  double height = 0;
  std::vector<Primitive> primitives;
  std::vector<double> pageStarts;  ///< heights at which a new page is asked for
  std::vector<KeptRange> kept;
  std::vector<ReportFault> faults;
  /// Objects with the place of their first primitive, until a part is taken off. Texts that wait for the number of pages are none's.
  std::vector<std::pair<const ReportNode*, size_t>> starts;
};

/// Lays the objects out: what grows pushes down what stands below it, what shrinks lets it up.
BandBox layoutBand(const LayoutBand& band, const EvaluationContext& context, const RichTexts* richTexts);
/// The same for objects that stand on the page itself; they keep their places.
BandBox layoutObjects(const std::vector<LayoutObject>& objects, double height, const EvaluationContext& context, const RichTexts* richTexts);

/// Lowest place not below limit where the box can be cut: no line of text, picture or barcode is divided, and nothing that is
/// kept together unless dividesKept. 0 when there is none.
double cutPlace(const BandBox& box, double limit, bool dividesKept);
/// Takes off what stands above the cut and leaves the rest, moved up.
BandBox takeUpper(BandBox& box, double cut);
