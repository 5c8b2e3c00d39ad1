#include "toolkit/report/designer/design_sample.h"

#include "base/environment.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int exampleRows = 3;

/// Rows of made-up values: each field shows its name and the row's number.
class ExampleRows : public ReportRows {
 public:
  explicit ExampleRows(QStringList fields) : fields_(std::move(fields)) {}
  QStringList fields() const override { return fields_; }
  int rowCount() const override { return exampleRows; }
  ReportValue value(int row, int field) const override { return u"%1 %2"_s.arg(fields_[field]).arg(row + 1); }

 private:
  QStringList fields_;
};

/// A text that the symbology of a barcode can hold.
QString exampleText(const QString& symbology) {
  if (symbology == u"ean13") return u"869000012345"_s;
  if (symbology == u"ean8") return u"8690001"_s;
  return u"123456"_s;
}

bool has(const ReportNode& object, QStringView property) { return findProperty(object.kind(), property).has_value(); }

DesignedObject laidOut(const LayoutObject& object, const DesignSample& sample, const EvaluationContext& context, const RichTexts* richTexts) {
  MeasuredObject measured = measure(object, context, richTexts);
  DesignedObject made;
  const QRectF rect(QPointF(), object.rect.size());
  made.bounds = rect;
  if (measured.isVisible) {
    QRectF room = rect;
    if (object.grows || object.shrinks) room.setHeight(measured.height);
    place(measured, room, made.page.primitives);
    if (object.kind == NodeKind::Barcode && measured.text.isEmpty() && !sample.barcodes.contains(object.name))
      measured.notices += u"Barkodun metni boş"_s;
  }
  for (const Primitive& primitive : made.page.primitives) made.bounds |= boundsOf(primitive);
  made.faults = measured.faults;
  made.notices = measured.notices;
  return made;
}

/// The text that the program gives a barcode of that name.
void putBarcode(LayoutObject& object, const DesignSample& sample) {
  if (object.kind == NodeKind::Barcode && sample.barcodes.contains(object.name))
    object.text = ExpressionText(ExpressionText::literal(sample.barcodes.value(object.name)));
}

}  // namespace

DesignSample exampleOf(const DesignSample& sample) {
  DesignSample made;
  for (const ReportVariable& each : sample.data.variables()) {
    made.data.declareVariable(each.name, each.explanation);
    const auto* number = std::get_if<double>(&each.value);
    made.data.setExpression(each.name, number ? u"1250.5"_s : ReportData::quoted(each.explanation.isEmpty() ? each.name : each.explanation));
  }
  for (const ReportDataSet& each : sample.data.dataSets())
    made.data.addRows(each.name, std::make_shared<ExampleRows>(each.rows->fields()), each.explanation);
  for (auto each = sample.barcodes.begin(); each != sample.barcodes.end(); ++each) made.barcodes.insert(each.key(), u"123456"_s);
  made.richTexts = sample.richTexts;
  made.printer = sample.printer;
  made.documentName = sample.documentName;
  return made;
}

ReportDocument filledWith(const ReportDocument& document, const DesignSample& sample) {
  ReportDocument filled = document.clone();
  for (auto each = sample.barcodes.begin(); each != sample.barcodes.end(); ++each)
    if (ReportNode* barcode = filled.find(each.key(), NodeKind::Barcode)) barcode->setValue(u"text", ExpressionText::literal(each.value()));
  return filled;
}

bool waitsForText(const ReportNode& object, const DesignSample& sample) {
  if (!has(object, u"text") || !object.text(u"text").isEmpty() || object.flag(u"locked")) return false;
  return !sample.barcodes.contains(object.name()) && !sample.richTexts.contains(object.name());
}

QString usualFormat(const QString& name, const DesignSample& sample) {
  const QString amount = u",0.00"_s;
  const qsizetype point = name.indexOf(u'.');
  if (point < 0) {
    const int variable = sample.data.findVariable(ReportData::folded(name));
    return variable >= 0 && std::holds_alternative<double>(sample.data.variables()[size_t(variable)].value) ? amount : QString();
  }
  // A count is a number as well: a field is an amount when one of its rows has a fraction.
  const int set = sample.data.findRows(ReportData::folded(name.left(point)));
  if (set < 0) return {};
  const ReportDataSet& found = sample.data.dataSets()[size_t(set)];
  const int field = found.fields.value(ReportData::folded(name.mid(point + 1)), -1);
  for (int row = 0; field >= 0 && row < found.rows->rowCount(); ++row) {
    const ReportValue value = found.rows->value(row, field);
    if (const auto* number = std::get_if<double>(&value); number && *number != std::floor(*number)) return amount;
  }
  return {};
}

SampleContext::SampleContext(const DesignSample& sample, const ReportNode& node, int row) {
  const ReportNode* band = isObject(node.kind()) ? node.parent() : &node;
  const bool isInBand = band && band->kind() == NodeKind::Band;
  const int ours = isInBand ? sample.data.findRows(ReportData::folded(band->text(u"data"))) : -1;
  int set = 0;
  for (const ReportDataSet& each : sample.data.dataSets()) {
    const int count = each.rows->rowCount();
    places_.push_back({set == ours && row < count ? row : -1, 0, count});
    if (set == ours) rowCount_ = count;
    ++set;
  }
  context_.data = &sample.data;
  context_.places = &places_;
  context_.page = 1;
  context_.pageCount = 1;
  context_.now = environment().now();
}

DesignedObject designedObject(const ReportNode& object, const DesignSample& sample) {
  LayoutObject shown(object);
  shown.visible.reset();
  shown.checked.reset();
  if (has(object, u"text")) shown.text = ExpressionText(ExpressionText::literal(object.text(u"text")));
  if (object.kind() == NodeKind::Barcode) {
    const DesignedObject printed = printedObject(object, sample);
    if (printed.faults.isEmpty() && !printed.page.primitives.empty()) return printed;
    shown.text = ExpressionText(exampleText(object.text(u"symbology")));
  }
  shown.grows = false;
  shown.shrinks = false;
  return laidOut(shown, sample, EvaluationContext(), nullptr);
}

DesignedObject printedObject(const ReportNode& object, const DesignSample& sample, int row) {
  LayoutObject shown(object);
  putBarcode(shown, sample);
  const SampleContext place(sample, object, row);
  return laidOut(shown, sample, place.context(), &sample.richTexts);
}

BandBox printedParts(const ReportNode& parent, const DesignSample& sample, int row) {
  const SampleContext place(sample, parent, row);
  if (parent.kind() == NodeKind::Band) {
    LayoutBand band(parent);
    for (LayoutObject& object : band.objects) putBarcode(object, sample);
    return layoutBand(band, place.context(), &sample.richTexts);
  }
  std::vector<LayoutObject> objects;
  for (const auto& child : parent.children()) {
    if (!isObject(child->kind())) continue;
    objects.emplace_back(*child);
    putBarcode(objects.back(), sample);
  }
  return layoutObjects(objects, 0, place.context(), &sample.richTexts);
}
