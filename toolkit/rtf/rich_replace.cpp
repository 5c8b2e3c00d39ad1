#include "toolkit/rtf/rich_replace.h"

#include "base/turkish_text.h"

namespace {

/// As long as the text itself: places in the one are places in the other.
QString folded(const QString& text) { return TurkishText::lower(text).replace(u'ı', u'i'); }

/// Moves the runs' letters up to behind into made; from and run are where it stands.
class RunCutter {
 public:
  explicit RunCutter(std::vector<RichRun>& runs) : runs_(runs) {}

  void keepTo(qsizetype behind) {
    while (place_ < behind) {
      const qsizetype count = std::min(behind - place_, restOfRun());
      add(runs_[run_].text.mid(from_, count), runs_[run_].format);
      step(count);
    }
  }
  /// Puts value in the place of the next letters.
  void replace(qsizetype count, const QString& value) {
    add(value, runs_[run_].format);
    const qsizetype behind = place_ + count;
    while (place_ < behind) step(std::min(behind - place_, restOfRun()));
  }
  std::vector<RichRun> take() { return std::move(made_); }

 private:
  qsizetype restOfRun() const { return runs_[run_].text.size() - from_; }

  void step(qsizetype count) {
    place_ += count;
    from_ += count;
    while (run_ < runs_.size() && from_ == runs_[run_].text.size()) {
      ++run_;
      from_ = 0;
    }
  }

  void add(const QString& text, const RichFormat& format) {
    if (text.isEmpty()) return;
    if (!made_.empty() && made_.back().format == format)
      made_.back().text += text;
    else
      made_.push_back({text, format});
  }

  std::vector<RichRun>& runs_;
  std::vector<RichRun> made_;
  size_t run_ = 0;
  qsizetype from_ = 0;   ///< within the run
  qsizetype place_ = 0;  ///< within the paragraph
};

int replaceIn(RichParagraph& paragraph, const QString& wanted, const QString& value) {
  QString text;
  std::erase_if(paragraph.runs, [](const RichRun& run) { return run.text.isEmpty(); });
  for (const RichRun& run : paragraph.runs) text += run.text;
  text = folded(text);
  qsizetype hit = text.indexOf(wanted);
  if (hit < 0) return 0;
  int count = 0;
  RunCutter cutter(paragraph.runs);
  for (; hit >= 0; hit = text.indexOf(wanted, hit + wanted.size())) {
    cutter.keepTo(hit);
    cutter.replace(wanted.size(), value);
    ++count;
  }
  cutter.keepTo(text.size());
  paragraph.runs = cutter.take();
  return count;
}

}  // namespace

int replaceInRichText(RichText& text, const QString& placeholder, const QString& value) {
  const QString wanted = folded(placeholder);
  if (wanted.isEmpty()) return 0;
  int count = 0;
  for (auto& block : text.blocks) {
    if (auto* paragraph = std::get_if<RichParagraph>(&block)) {
      count += replaceIn(*paragraph, wanted, value);
      continue;
    }
    for (RichRow& row : std::get<RichTable>(block).rows)
      for (RichCell& cell : row.cells)
        for (RichParagraph& paragraph : cell.paragraphs) count += replaceIn(paragraph, wanted, value);
  }
  return count;
}
