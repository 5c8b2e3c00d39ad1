#include "toolkit/rtf/rtf_words.h"

#include "toolkit/rtf/rtf_measures.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;
using RtfMeasures::millimetres;

namespace {

constexpr double usualPoints = 12;
constexpr double linesUnit = 240;  ///< of line spacing in shares of the font's own
constexpr size_t mostCells = 100;
constexpr size_t mostTabs = 60;

/// A word without a number, or with another than 0, switches on.
bool isOn(const RtfToken& word) { return !word.hasValue || word.value != 0; }

template <class... Arguments>
using WordTable = QHash<QByteArray, std::function<void(Arguments..., const RtfToken&)>>;

template <class Table>
auto found(const Table& table, QByteArrayView word) {
  return table.constFind(QByteArray::fromRawData(word.data(), word.size()));
}

using Characters = WordTable<RtfState&, const RtfTables&>;

const Characters& characterWords() {
  static const Characters words = [] {
    Characters made;
    const auto underline = [](RtfState& state, const RtfTables&, const RtfToken& word) { state.format.font.underline = isOn(word); };
    for (const char* name : {"ul", "uld", "uldash", "uldashd", "uldashdd", "uldb", "ulhwave", "ulth", "ulthd", "ulthdash", "ulw", "ulwave"})
      made.insert(name, underline);
    made.insert("ulnone", [](RtfState& state, const RtfTables&, const RtfToken&) { state.format.font.underline = false; });
    for (const char* name : {"strike", "striked"})
      made.insert(name, [](RtfState& state, const RtfTables&, const RtfToken& word) { state.format.font.strikeOut = isOn(word); });
    made.insert("b", [](RtfState& state, const RtfTables&, const RtfToken& word) {
      state.format.font.bold = isOn(word);
    });
    made.insert("i", [](RtfState& state, const RtfTables&, const RtfToken& word) {
      state.format.font.italic = isOn(word);
    });
    made.insert("fs", [](RtfState& state, const RtfTables&, const RtfToken& word) {
      state.format.font.points = word.hasValue ? std::clamp(word.value / 2.0, 1.0, 400.0) : usualPoints;
    });
    made.insert("f", [](RtfState& state, const RtfTables& tables, const RtfToken& word) {
      state.font = word.value;
      if (const QString name = tables.fonts.value(word.value).name; !name.isEmpty()) state.format.font.family = name;
    });
    made.insert("cf", [](RtfState& state, const RtfTables& tables, const RtfToken& word) {
      const QColor color = tables.color(word.value);
      state.format.color = color.isValid() ? color : QColor(Qt::black);
    });
    for (const char* name : {"highlight", "cb", "chcbpat"})
      made.insert(name, [](RtfState& state, const RtfTables& tables, const RtfToken& word) { state.format.background = tables.color(word.value); });
    made.insert("caps", [](RtfState& state, const RtfTables&, const RtfToken& word) { state.isCapital = isOn(word); });
    for (const char* name : {"v", "deleted"})
      made.insert(name, [](RtfState& state, const RtfTables&, const RtfToken& word) { state.isHidden = isOn(word); });
    for (const char* name : {"super", "up"})
      made.insert(name, [](RtfState& state, const RtfTables&, const RtfToken& word) { state.format.script = isOn(word) ? 1 : 0; });
    for (const char* name : {"sub", "dn"})
      made.insert(name, [](RtfState& state, const RtfTables&, const RtfToken& word) { state.format.script = isOn(word) ? -1 : 0; });
    made.insert("nosupersub", [](RtfState& state, const RtfTables&, const RtfToken&) { state.format.script = 0; });
    made.insert("plain", [](RtfState& state, const RtfTables& tables, const RtfToken&) { RtfWords::resetCharacters(state, tables); });
    made.insert("uc", [](RtfState& state, const RtfTables&, const RtfToken& word) { state.fallbackLetters = std::clamp(word.value, 0, 100); });
    return made;
  }();
  return words;
}

using Paragraphs = WordTable<RtfState&>;

const Paragraphs& paragraphWords() {
  static const Paragraphs words = [] {
    Paragraphs made;
    const auto align = [&](const char* name, Qt::Alignment alignment) {
      made.insert(name, [alignment](RtfState& state, const RtfToken&) { state.look.alignment = alignment; });
    };
    align("ql", Qt::AlignLeft);
    align("qr", Qt::AlignRight);
    align("qc", Qt::AlignHCenter);
    align("qj", Qt::AlignJustify);
    align("qd", Qt::AlignJustify);
    const auto length = [&](const char* name, double RichParagraph::* member) {
      made.insert(name, [member](RtfState& state, const RtfToken& word) { state.look.*member = millimetres(word.value); });
    };
    length("li", &RichParagraph::left);
    length("ri", &RichParagraph::right);
    length("fi", &RichParagraph::first);
    length("sb", &RichParagraph::before);
    length("sa", &RichParagraph::after);
    // The number is a share with slmult behind it, else a height: negative exactly, positive at least.
    made.insert("sl", [](RtfState& state, const RtfToken& word) {
      state.look.exactLine = word.value < 0 ? -millimetres(word.value) : 0;
      state.look.leastLine = word.value > 0 ? millimetres(word.value) : 0;
      state.look.lineSpacing = 1;
    });
    made.insert("slmult", [](RtfState& state, const RtfToken& word) {
      if (word.value != 1) return;
      const double twips = std::max(state.look.leastLine, state.look.exactLine) / millimetres(1);
      if (twips > 0) state.look.lineSpacing = std::clamp(twips / linesUnit, 0.2, 10.0);
      state.look.leastLine = 0;
      state.look.exactLine = 0;
    });
    // The kind of a stop comes before its place.
    made.insert("tqr", [](RtfState& state, const RtfToken&) { state.nextTab = Qt::AlignRight; });
    made.insert("tqc", [](RtfState& state, const RtfToken&) { state.nextTab = Qt::AlignHCenter; });
    made.insert("tqdec", [](RtfState& state, const RtfToken&) { state.nextTab = Qt::AlignRight; });
    made.insert("tx", [](RtfState& state, const RtfToken& word) {
      auto& tabs = state.look.tabs;
      const RichTab tab{std::max(0.0, millimetres(word.value)), std::exchange(state.nextTab, Qt::AlignLeft)};
      const auto behind = std::find_if(tabs.begin(), tabs.end(), [&](const RichTab& each) { return each.place > tab.place; });
      if (tabs.size() < mostTabs) tabs.insert(behind, tab);
    });
    made.insert("pagebb", [](RtfState& state, const RtfToken& word) { state.look.startsPage = isOn(word); });
    made.insert("keep", [](RtfState& state, const RtfToken& word) { state.look.keepsWhole = isOn(word); });
    made.insert("keepn", [](RtfState& state, const RtfToken& word) { state.look.keepsWithNext = isOn(word); });
    made.insert("intbl", [](RtfState& state, const RtfToken&) { state.isInTable = true; });
    const auto border = [&](const char* name, const QString& side) {
      made.insert(name, [side](RtfState& state, const RtfToken&) { state.side = side; });
    };
    border("brdrl", u"left"_s);
    border("brdrt", u"top"_s);
    border("brdrr", u"right"_s);
    border("brdrb", u"bottom"_s);
    border("box", u"left top right bottom"_s);
    made.insert("pard", [](RtfState& state, const RtfToken&) {
      state.look = {};
      state.isInTable = false;
      state.side.clear();
      state.nextTab = Qt::AlignLeft;
    });
    return made;
  }();
  return words;
}

bool isLine(QByteArrayView word) {
  static const QList<QByteArray> kinds{"brdrs",  "brdrth",   "brdrsh",    "brdrdb",   "brdrdot",   "brdrdash",   "brdrhair",
                                       "brdrdashsm", "brdrdashd", "brdrdashdd", "brdrtriple", "brdrtnthsg", "brdrthtnsg", "brdrwavy"};
  return kinds.contains(QByteArray::fromRawData(word.data(), word.size()));
}

void addSides(QString& border, const QString& sides) {
  for (const QString& side : sides.split(u' ', Qt::SkipEmptyParts))
    if (!border.contains(side)) border += border.isEmpty() ? side : u' ' + side;
}

/// Borders have one colour all around: the last that is told.
void setColor(QColor& color, const RtfTables& tables, const RtfToken& word) {
  const QColor told = tables.color(word.value);
  color = told.isValid() ? told : QColor(Qt::black);
}

using Rows = WordTable<RtfWords::RowWords&, const RtfTables&>;

const Rows& rowWords() {
  using RtfWords::RowWords;
  static const Rows words = [] {
    Rows made;
    made.insert("trowd", [](RowWords& row, const RtfTables&, const RtfToken&) { row = {}; });
    made.insert("trleft", [](RowWords& row, const RtfTables&, const RtfToken& word) { row.plan.left = millimetres(word.value); });
    // Word processors write a cell's left padding as its top one, and the other way round.
    for (const char* name : {"trgaph", "trpaddl", "clpadt"})
      made.insert(name, [](RowWords& row, const RtfTables&, const RtfToken& word) { row.plan.padding = std::clamp(millimetres(word.value), 0.0, 10.0); });
    made.insert("trrh", [](RowWords& row, const RtfTables&, const RtfToken& word) { row.plan.height = std::min(std::abs(millimetres(word.value)), 200.0); });
    const auto side = [&](const char* name, const QString& of) {
      made.insert(name, [of](RowWords& row, const RtfTables&, const RtfToken&) { row.side = of; });
    };
    side("clbrdrl", u"left"_s);
    side("clbrdrt", u"top"_s);
    side("clbrdrr", u"right"_s);
    side("clbrdrb", u"bottom"_s);
    for (const char* name : {"trbrdrl", "trbrdrt", "trbrdrr", "trbrdrb", "trbrdrh", "trbrdrv", "cldglu", "cldgll"}) side(name, {});
    made.insert("clcbpat", [](RowWords& row, const RtfTables& tables, const RtfToken& word) { row.cell.background = tables.color(word.value); });
    made.insert("clvertalc", [](RowWords& row, const RtfTables&, const RtfToken&) { row.cell.vertical = Qt::AlignVCenter; });
    made.insert("clvertalb", [](RowWords& row, const RtfTables&, const RtfToken&) { row.cell.vertical = Qt::AlignBottom; });
    made.insert("clmrg", [](RowWords& row, const RtfTables&, const RtfToken&) { row.cell.joinsLeft = true; });
    made.insert("clvmrg", [](RowWords& row, const RtfTables&, const RtfToken&) { row.cell.joinsAbove = true; });
    made.insert("cellx", [](RowWords& row, const RtfTables&, const RtfToken& word) {
      row.cell.right = millimetres(word.value);
      if (row.plan.cells.size() < mostCells) row.plan.cells.push_back(row.cell);
      row.cell = {};
      row.side.clear();
    });
    return made;
  }();
  return words;
}

}  // namespace

void RtfWords::resetCharacters(RtfState& state, const RtfTables& tables) {
  state.format = {};
  state.format.font.points = usualPoints;
  state.font = tables.usualFont;
  if (const QString name = tables.fonts.value(tables.usualFont).name; !name.isEmpty()) state.format.font.family = name;
  state.isCapital = false;
  state.isHidden = false;
}

bool RtfWords::setCharacters(RtfState& state, const RtfTables& tables, const RtfToken& word) {
  const auto handler = found(characterWords(), word.bytes);
  if (handler == characterWords().constEnd()) return false;
  (*handler)(state, tables, word);
  return true;
}

bool RtfWords::setParagraph(RtfState& state, const RtfTables& tables, const RtfToken& word) {
  if (!state.side.isEmpty() && word.bytes == "brdrcf") {
    setColor(state.look.borderColor, tables, word);
    return true;
  }
  if (!state.side.isEmpty() && word.bytes.startsWith("brdr") && isLine(word.bytes)) {
    addSides(state.look.border, state.side);
    return true;
  }
  const auto handler = found(paragraphWords(), word.bytes);
  if (handler == paragraphWords().constEnd()) return false;
  (*handler)(state, word);
  return true;
}

void RtfWords::chooseBorder(RtfState& state, RowWords& row, QByteArrayView word) {
  static const QList<QByteArray> ofParagraphs{"brdrl", "brdrt", "brdrr", "brdrb", "box"};
  if (ofParagraphs.contains(QByteArray::fromRawData(word.data(), word.size())) || word.startsWith("pgbrdr")) row.side.clear();
  if (word.startsWith("clbrdr") || word.startsWith("trbrdr") || word.startsWith("pgbrdr")) state.side.clear();
}

bool RtfWords::setRow(RowWords& row, const RtfTables& tables, const RtfToken& word) {
  if (!row.side.isEmpty() && isLine(word.bytes)) {
    addSides(row.cell.border, row.side);
    return true;
  }
  if (!row.side.isEmpty() && word.bytes == "brdrcf") {
    setColor(row.cell.borderColor, tables, word);
    return true;
  }
  const auto handler = found(rowWords(), word.bytes);
  if (handler == rowWords().constEnd()) return false;
  (*handler)(row, tables, word);
  return true;
}

char16_t RtfWords::letterOf(QByteArrayView word) {
  static const QHash<QByteArray, char16_t> letters{
      {"bullet", u'•'},   {"emdash", u'—'},     {"endash", u'–'},    {"lquote", u'‘'},    {"rquote", u'’'},  {"ldblquote", u'“'},
      {"rdblquote", u'”'}, {"emspace", u'\u2003'}, {"enspace", u'\u2002'}, {"qmspace", u'\u2005'}, {"line", u'\n'}, {"lbr", u'\n'},
      {"tab", u'\t'}};
  return letters.value(QByteArray::fromRawData(word.data(), word.size()), 0);
}
