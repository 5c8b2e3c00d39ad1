#include "toolkit/report/report_file.h"

#include "base/whole_file.h"

#include <QFile>
#include <QFileInfo>

#include <pugixml.hpp>

#include <algorithm>
#include <set>
#include <sstream>

using namespace Qt::StringLiterals;

namespace {

constexpr int ourVersion = 1;
constexpr int mostDepth = 200;  ///< of elements within one another; each is indented by its depth when it is written
constexpr qint64 mostBytes = 64 * 1024 * 1024;
constexpr unsigned parsing = pugi::parse_default | pugi::parse_comments | pugi::parse_pi | pugi::parse_ws_pcdata_single;

QString fromUtf8(const char* text) { return QString::fromUtf8(text); }

QString xmlOf(const pugi::xml_node& node) {
  std::ostringstream out;
  node.print(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
  return QString::fromStdString(out.str());
}

/// Why the bytes are no XML, for whoever wrote them by hand.
QString reasonOf(pugi::xml_parse_status status) {
  switch (status) {
    case pugi::status_unrecognized_tag: return u"“<” ardından bir öge adı gelmeli"_s;
    case pugi::status_bad_comment: return u"açıklama “-->” ile kapanmamış"_s;
    case pugi::status_bad_start_element: return u"öge “>” ile bitmiyor"_s;
    case pugi::status_bad_attribute: return u"özellik ad=\"değer\" olarak yazılmamış"_s;
    case pugi::status_bad_end_element: return u"ögenin kapanışı yarım"_s;
    case pugi::status_end_element_mismatch: return u"kapanan öge açılan öge değil ya da açılan kapanmamış"_s;
    case pugi::status_no_document_element: return u"dosyada öge yok"_s;
    default: return u"okunamıyor"_s;
  }
}

bool mayHold(NodeKind parent, NodeKind child) {
  switch (parent) {
    case NodeKind::Report: return child == NodeKind::Page;
    case NodeKind::Page: return child == NodeKind::Band || isObject(child);
    case NodeKind::Band: return isObject(child);
    default: return false;
  }
}

/// Comes to the first element that lies too deep.
struct DepthWalker : pugi::xml_tree_walker {
  pugi::xml_node found;
  bool for_each(pugi::xml_node& node) override {
    if (depth() < mostDepth) return true;
    found = node;
    return false;
  }
};

class Reader {
 public:
  explicit Reader(const QByteArray& bytes) : bytes_(bytes) {}

  ReportDocument read() {
    if (bytes_.size() > mostBytes) throw EReportFile(1, u"dosya bir rapor için çok büyük"_s);
    const pugi::xml_parse_result result = xml_.load_buffer(bytes_.constData(), size_t(bytes_.size()), parsing);
    if (!result) throw EReportFile(lineAt(result.offset), u"XML bozuk, "_s + reasonOf(result.status));
    DepthWalker walker;
    if (!xml_.traverse(walker)) throw fault(walker.found, u"ögeler çok iç içe"_s);
    const pugi::xml_node root = xml_.document_element();
    if (fromUtf8(root.name()) != elementName(NodeKind::Report))
      throw fault(root, u"bu bir rapor şablonu değil: kök öge <report> olmalı, <%1> bulundu"_s.arg(fromUtf8(root.name())));
    document_.version = root.attribute("version").as_int(0);
    if (document_.version < 1) throw fault(root, u"<report> ögesinin version özelliği yok ya da sayı değil"_s);
    bool isBehind = false;
    for (const pugi::xml_node& node : xml_.children()) {
      if (node == root)
        isBehind = true;
      else
        (isBehind ? document_.behind : document_.before) += xmlOf(node) + u'\n';
    }
    readInto(document_.root(), root);
    return std::move(document_);
  }

 private:
  int lineAt(std::ptrdiff_t offset) const {
    const qsizetype behind = std::clamp<qsizetype>(qsizetype(offset), 0, bytes_.size());
    return 1 + int(std::count(bytes_.begin(), bytes_.begin() + behind, '\n'));
  }
  EReportFile fault(const pugi::xml_node& node, const QString& reason) const { return {lineAt(node.offset_debug()), reason}; }

  void readInto(ReportNode& node, const pugi::xml_node& element) {
    std::set<QString> seen;
    for (const pugi::xml_attribute& attribute : element.attributes()) {
      const QString name = fromUtf8(attribute.name());
      if (!seen.insert(name).second) throw fault(element, u"“%1” iki kez yazılmış"_s.arg(name));
      if (node.kind() == NodeKind::Report && name == u"version") continue;
      const auto index = findProperty(node.kind(), name);
      if (!index || propertiesOf(node.kind())[*index].isContent || !readValue(node, element, *index, fromUtf8(attribute.value())))
        node.foreignAttributes.emplace_back(name, fromUtf8(attribute.value()));
    }
    readContent(node, element);
    for (const pugi::xml_node& child : element.children()) readChild(node, child);
  }

  /// False when a newer version wrote a value that this one does not know.
  bool readValue(ReportNode& node, const pugi::xml_node& element, size_t index, const QString& text) {
    const PropertyInfo& property = propertiesOf(node.kind())[index];
    try {
      node.setValue(property.name, propertyFromText(property, text));
    } catch (const EConvertError& error) {
      if (document_.version > ourVersion) return false;
      throw fault(element, u"<%1> ögesinin “%2” özelliği: %3"_s.arg(fromUtf8(element.name()), property.name, error.message()));
    }
    return true;
  }

  void readContent(ReportNode& node, const pugi::xml_node& element) {
    const auto& properties = propertiesOf(node.kind());
    for (size_t index = 0; index < properties.size(); ++index) {
      if (!properties[index].isContent) continue;
      QString text;
      for (const pugi::xml_node& child : element.children())
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) text += fromUtf8(child.value());
      if (!text.isEmpty() && !readValue(node, element, index, text)) throw fault(element, u"içeriği okunamıyor"_s);
      return;
    }
  }

  void readChild(ReportNode& node, const pugi::xml_node& child) {
    const auto kind = child.type() == pugi::node_element ? kindOfElement(fromUtf8(child.name())) : std::nullopt;
    if (kind && !mayHold(node.kind(), *kind))
      throw fault(child, u"<%1> ögesi <%2> içinde duramaz"_s.arg(fromUtf8(child.name()), elementName(node.kind())));
    if (kind) return readInto(*node.append(std::make_unique<ReportNode>(*kind)), child);
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
      if (!isObject(node.kind())) throw fault(child, u"<%1> ögesi içinde yazı duramaz"_s.arg(elementName(node.kind())));
      return;
    }
    auto foreign = std::make_unique<ReportNode>(NodeKind::Foreign);
    foreign->foreignXml = xmlOf(child);
    node.append(std::move(foreign));
  }

  const QByteArray& bytes_;
  pugi::xml_document xml_;
  ReportDocument document_;
};

void appendXml(pugi::xml_node parent, const QString& xml) {
  const QByteArray bytes = xml.toUtf8();
  if (!parent.append_buffer(bytes.constData(), size_t(bytes.size()), parsing | pugi::parse_fragment, pugi::encoding_utf8))
    throw Exception(u"kept XML cannot be written: %1"_s.arg(xml));
}

void writeInto(pugi::xml_node parent, const ReportNode& node, int version) {
  if (node.kind() == NodeKind::Foreign) return appendXml(parent, node.foreignXml);
  pugi::xml_node element = parent.append_child(elementName(node.kind()).toUtf8().constData());
  if (node.kind() == NodeKind::Report) element.append_attribute("version") = version;
  for (const PropertyInfo& property : propertiesOf(node.kind())) {
    const PropertyValue& value = node.value(property.name);
    if (value == property.initial) continue;
    const QByteArray text = propertyText(property, value).toUtf8();
    if (property.isContent)
      element.append_child(pugi::node_pcdata).set_value(text.constData());
    else
      element.append_attribute(property.name.toUtf8().constData()) = text.constData();
  }
  for (const auto& [name, value] : node.foreignAttributes)
    element.append_attribute(name.toUtf8().constData()) = value.toUtf8().constData();
  for (const auto& child : node.children()) writeInto(element, *child, version);
}

}  // namespace

EReportFile::EReportFile(int line, const QString& reason) : EInOutError(u"%1. satır: %2"_s.arg(line).arg(reason)), line_(line) {}
EReportFile::EReportFile(const QString& file, const EReportFile& fault)
    : EInOutError(u"%1, %2"_s.arg(QFileInfo(file).fileName(), fault.message())), line_(fault.line()) {}
QString EReportFile::className() const { return u"EReportFile"_s; }
QString EReportFile::parentClassName() const { return u"EInOutError"_s; }

ReportDocument ReportFile::read(const QByteArray& bytes) { return Reader(bytes).read(); }

QByteArray ReportFile::write(const ReportDocument& document) {
  pugi::xml_document xml;
  pugi::xml_node declaration = xml.append_child(pugi::node_declaration);
  declaration.append_attribute("version") = "1.0";
  declaration.append_attribute("encoding") = "UTF-8";
  if (!document.before.isEmpty()) appendXml(xml, document.before);
  writeInto(xml, document.root(), document.version);
  if (!document.behind.isEmpty()) appendXml(xml, document.behind);
  std::ostringstream out;
  xml.save(out, "  ", pugi::format_indent, pugi::encoding_utf8);
  return QByteArray::fromStdString(out.str());
}

ReportDocument ReportFile::load(const QString& file) {
  QFile in(file);
  if (!in.open(QIODevice::ReadOnly)) throw EInOutError(u"%1 açılamadı: %2"_s.arg(file, in.errorString()));
  try {
    return read(in.readAll());
  } catch (const EReportFile& fault) {
    throw EReportFile(file, fault);
  }
}

void ReportFile::save(const ReportDocument& document, const QString& file) {
  if (QFile::exists(file)) load(file);
  WholeFile::replace(file, write(document));
}
