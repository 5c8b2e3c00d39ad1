#include "toolkit/rtf/rtf_reader.h"

#include "base/turkish_text.h"
#include "toolkit/rtf/code_pages.h"
#include "toolkit/rtf/rtf_picture.h"
#include "toolkit/rtf/rtf_words.h"

#include <QFile>
#include <QSet>

using namespace Qt::StringLiterals;
using Place = RtfState::Place;

namespace {

constexpr qsizetype mostBytes = 64 * 1024 * 1024;
constexpr size_t mostDepth = 300;
constexpr qint64 mostWeight = 2'000'000;
constexpr qint64 mostDots = 60'000'000;  ///< of all pictures together
constexpr int symbolSet = 2;             ///< character set of fonts of symbols
constexpr int privateUse = 0xF000;       ///< where letters of such fonts stand when they are told by number

/// Groups that are no part of the text's flow. Those marked as optional are passed over unless enter() knows them.
bool isPassedOver(QByteArrayView word) {
  static const QSet<QByteArray> words{"stylesheet", "info",     "header",   "headerl", "headerr", "headerf", "footer",       "footerl", "footerr",
                                      "footerf",    "footnote", "annotation", "nonshppict", "fldinst", "shprslt", "nonesttables", "xe",      "tc",
                                      "filetbl",    "objclass", "objdata",  "pntxta",  "pntxtb",  "private", "listtable",    "comment", "template"};
  return words.contains(QByteArray::fromRawData(word.data(), word.size()));
}

class Reader {
 public:
  explicit Reader(const QByteArray& bytes) : tokens_(bytes) {
    if (bytes.size() > mostBytes) throw tokens_.fault(u"dosya bir mektup için çok büyük"_s);
  }

  RichText read() {
    begin();
    while (!states_.empty()) take(tokens_.next());
    return builder_.take(lastState_.look, lastState_.format);
  }

 private:
  RtfState& state() { return states_.back(); }

  void begin() {
    const RtfToken open = tokens_.next();
    const RtfToken word = tokens_.next();
    if (open.kind != RtfToken::Open || word.kind != RtfToken::Word || word.bytes != "rtf")
      throw tokens_.fault(u"bu bir zengin metin (RTF) dosyası değil"_s);
    states_.emplace_back();
    RtfWords::resetCharacters(state(), tables_);
  }

  void take(const RtfToken& token) {
    if (fallback_ > 0 && passesOver(token)) return;
    if (token.kind != RtfToken::Text && token.kind != RtfToken::Byte) flush();
    switch (token.kind) {
      case RtfToken::Open: open(); break;
      case RtfToken::Close: close(); break;
      case RtfToken::Word: takeWord(token); break;
      case RtfToken::Symbol: takeSymbol(token.bytes[0]); break;
      case RtfToken::Byte: waiting_ += char(token.value); break;
      case RtfToken::Text: takeLetters(token.bytes); break;
      case RtfToken::Binary:
        if (state().place == Place::Picture) picture_.addBinary(token.bytes);
        break;
      case RtfToken::End: throw tokens_.fault(u"dosya yarım kalmış: kapanmayan ayraç var"_s);
    }
    isOptional_ = isOptional_ && token.kind == RtfToken::Symbol;
  }

  // Groups

  void open() {
    if (states_.size() >= mostDepth) throw tokens_.fault(u"ayraçlar çok iç içe"_s);
    states_.push_back(state());
    if (state().place == Place::Picture) state().place = Place::Shape;
    beginsGroup_ = true;
  }

  void close() {
    const Place before = state().place;
    lastState_ = std::move(states_.back());
    states_.pop_back();
    if (before == Place::Picture && (states_.empty() || state().place != Place::Picture)) endPicture();
    // The table of fonts names the one that the letters begin with.
    if (before == Place::Fonts && !states_.empty() && state().place == Place::Body) RtfWords::resetCharacters(state(), tables_);
    beginsGroup_ = false;
  }

  /// Passes over the rest of the group that has just begun.
  void passOverGroup() {
    for (int depth = 1; depth > 0;) {
      const RtfToken token = tokens_.next();
      if (token.kind == RtfToken::End) throw tokens_.fault(u"dosya yarım kalmış: kapanmayan ayraç var"_s);
      depth += token.kind == RtfToken::Open ? 1 : token.kind == RtfToken::Close ? -1 : 0;
    }
    states_.pop_back();
  }

  /// A group's first word may tell where it belongs. True when it has done so.
  bool enter(QByteArrayView word) {
    if (word == "fonttbl") return goTo(Place::Fonts);
    if (word == "colortbl") return goTo(Place::Colors);
    if (word == "listtext" || word == "pntext") return goTo(Place::Marker);
    if (word == "pict") {
      picture_ = {};
      return goTo(Place::Picture);
    }
    if (word == "shpinst") return goTo(Place::Shape);
    // What stands in a text box goes on in the text.
    if (word == "shptxt") return goTo(Place::Body);
    if (word == "shppict") return true;
    if (!isOptional_ && !isPassedOver(word)) return false;
    passOverGroup();
    return true;
  }

  bool goTo(Place place) {
    state().place = place;
    return true;
  }

  void endPicture() {
    if (states_.empty() || (state().place != Place::Body && state().place != Place::Shape) || state().isHidden) return;
    try {
      auto picture = picture_.take(mostDots - dots_);
      if (!picture) return;
      dots_ += qint64(picture->image.width()) * picture->image.height();
      builder_.addPicture(std::move(*picture));
    } catch (const EConvertError& error) {
      throw tokens_.fault(error.message());
    }
  }

  // Words

  void takeWord(const RtfToken& token) {
    const bool isFirst = std::exchange(beginsGroup_, false);
    if (isFirst && enter(token.bytes)) return;
    switch (state().place) {
      case Place::Fonts: return takeFontWord(token);
      case Place::Colors: return takeColorWord(token);
      case Place::Picture: return picture_.word(token);
      default: break;
    }
    if (token.bytes == "u") return takeNumber(token);
    if (const char16_t letter = RtfWords::letterOf(token.bytes)) return put(QString(QChar(letter)));
    if (RtfWords::setCharacters(state(), tables_, token) || takeBreak(token.bytes) || takeFileWord(token)) return;
    if (state().place != Place::Body) return;
    RtfWords::chooseBorder(state(), row_, token.bytes);
    if (RtfWords::setRow(row_, tables_, token)) return;
    RtfWords::setParagraph(state(), tables_, token);
  }

  /// Ends of paragraphs, cells, rows and pages.
  bool takeBreak(QByteArrayView word) {
    if (state().place != Place::Body) return false;
    const RtfState& here = state();
    if (word == "par" || word == "nestcell")
      builder_.endParagraph(here.look, here.format, here.isInTable);
    else if (word == "cell")
      builder_.endCell(here.look, here.format);
    else if (word == "row")
      builder_.endRow(row_.plan);
    else if (word == "page" || word == "sect")
      builder_.breakPage(here.look, here.format, here.isInTable);
    else if (word == "sbknone")
      builder_.forgetBreak();
    else
      return false;
    checkWeight();
    return true;
  }

  bool takeFileWord(const RtfToken& token) {
    if (token.bytes == "ansicpg")
      tables_.page = token.value;
    else if (token.bytes == "mac")
      tables_.page = 10000;
    else if (token.bytes == "pc")
      tables_.page = 437;
    else if (token.bytes == "pca")
      tables_.page = 850;
    else if (token.bytes == "deff")
      tables_.usualFont = token.value;
    else
      return false;
    return true;
  }

  void takeFontWord(const RtfToken& token) {
    RtfFont& font = tables_.fonts[font_];
    if (token.bytes == "f")
      font_ = token.value;
    else if (token.bytes == "fcharset" && token.value == symbolSet)
      font.isOfSymbols = true;
    else if (token.bytes == "fcharset")
      font.page = CodePages::ofCharacterSet(token.value, 0);
    else if (token.bytes == "cpg")
      font.page = token.value;
    else if (token.bytes == "u")
      takeNumber(token);
    checkWeight();
  }

  void takeColorWord(const RtfToken& token) {
    const int share = std::clamp(token.value, 0, 255);
    if (token.bytes != "red" && token.bytes != "green" && token.bytes != "blue") return;
    if (!color_.isValid()) color_ = Qt::black;
    if (token.bytes == "red") color_.setRed(share);
    if (token.bytes == "green") color_.setGreen(share);
    if (token.bytes == "blue") color_.setBlue(share);
  }

  void takeSymbol(char symbol) {
    switch (symbol) {
      case '*': isOptional_ = beginsGroup_; return;
      case '\\':
      case '{':
      case '}': put(QString(QLatin1Char(symbol))); break;
      case '~': put(QString(QChar::Nbsp)); break;
      case '_': put(u"\u2011"_s); break;
      case '\r':
      case '\n': takeBreak("par"); break;
      case '\t': put(u"\t"_s); break;
      default: break;
    }
    beginsGroup_ = false;
  }

  // Letters

  /// Letters behind one that was told by its number stand for the same. A word or group ends them.
  bool passesOver(const RtfToken& token) {
    switch (token.kind) {
      case RtfToken::Symbol:
      case RtfToken::Byte: --fallback_; return true;
      case RtfToken::Text: {
        const qsizetype count = std::min<qsizetype>(fallback_, token.bytes.size());
        fallback_ -= int(count);
        takeLetters(token.bytes.sliced(count));
        return true;
      }
      default: fallback_ = 0; return false;
    }
  }

  void takeLetters(QByteArrayView letters) {
    if (letters.isEmpty()) return;
    beginsGroup_ = false;
    if (state().place == Place::Picture) {
      if (!picture_.addHex(letters)) throw tokens_.fault(u"içindeki resmin verisi bozuk"_s);
      return;
    }
    waiting_ += letters;
  }

  void takeNumber(const RtfToken& token) {
    const auto unit = char16_t(token.value & 0xFFFF);
    fallback_ = state().fallbackLetters;
    if (unit >= privateUse && unit <= privateUse + 0xFF) return putSymbol(unit - privateUse, unit);
    put(QString(QChar(unit)));
  }

  /// Gives out what has come in bytes; they are letters together where one letter takes several.
  void flush() {
    if (waiting_.isEmpty()) return;
    const QByteArray bytes = std::exchange(waiting_, {});
    const RtfFont font = tables_.fonts.value(state().place == Place::Fonts ? font_ : state().font);
    if (font.isOfSymbols && state().place != Place::Fonts) {
      for (const char byte : bytes) putSymbol(uchar(byte), char16_t(uchar(byte)));
      return;
    }
    put(CodePages::decode(font.page ? font.page : tables_.page, bytes));
  }

  /// A letter of a font of symbols: a usual one where there is its like, since that font is not on every computer.
  void putSymbol(int place, char16_t otherwise) {
    const char16_t symbol = CodePages::symbol(place);
    if (!symbol) return put(QString(QChar(otherwise)));
    const QString family = std::exchange(state().format.font.family, tables_.fonts.value(tables_.usualFont).name);
    if (state().format.font.family.isEmpty()) state().format.font.family = ReportFont().family;
    put(QString(QChar(symbol)));
    state().format.font.family = family;
  }

  void put(QString text) {
    beginsGroup_ = false;
    text.removeIf([](QChar letter) { return letter < u' ' && letter != u'\t' && letter != u'\n'; });
    switch (state().place) {
      case Place::Body:
        if (!state().isHidden) builder_.addText(state().isCapital ? TurkishText::upper(text) : text, state().format);
        checkWeight();
        break;
      case Place::Marker:
        if (!state().isHidden) builder_.addMarker(text, state().format);
        checkWeight();
        break;
      case Place::Fonts: {
        QString& name = tables_.fonts[font_].name;
        if (name.endsWith(u';') || name.size() > 100) break;
        name += text;
        if (const qsizetype end = name.indexOf(u';'); end >= 0) name.truncate(end);
        break;
      }
      case Place::Colors:
        for (auto ends = text.count(u';'); ends > 0 && tables_.colors.size() < 10'000; --ends) tables_.colors.push_back(std::exchange(color_, QColor()));
        break;
      default: break;
    }
  }

  void checkWeight() {
    if (builder_.weight() > mostWeight || tables_.fonts.size() > 10'000) throw tokens_.fault(u"metin bir mektup için çok uzun"_s);
  }

  RtfTokens tokens_;
  RtfTables tables_;
  RichBuilder builder_;
  std::vector<RtfState> states_;
  RtfState lastState_;
  RtfWords::RowWords row_;
  RtfPicture picture_;
  QByteArray waiting_;       ///< letters whose code page is asked for when all of them are there
  QColor color_;             ///< of the table, while its shares come in
  int font_ = 0;             ///< of the table, whose name comes in
  int fallback_ = 0;         ///< letters to pass over
  qint64 dots_ = 0;
  bool beginsGroup_ = false; ///< nothing but "\*" has come in this group
  bool isOptional_ = false;
};

}  // namespace

RichText RtfReader::read(const QByteArray& bytes) { return Reader(bytes).read(); }

RichText RtfReader::load(const QString& file) {
  QFile in(file);
  if (!in.open(QIODevice::ReadOnly)) throw EInOutError(u"%1 açılamadı: %2"_s.arg(file, in.errorString()));
  try {
    return read(in.readAll());
  } catch (const ERtfFile& error) {
    throw EInOutError(u"%1 okunamadı. %2"_s.arg(file, error.message()));
  }
}
