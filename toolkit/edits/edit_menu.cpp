#include "toolkit/edits/edit_menu.h"

#include "base/guard.h"
#include "toolkit/edits/edit_line.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextDocument>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// What a text input can do now.
struct EditState {
  bool canUndo;
  bool canRedo;
  bool hasSelection;
  bool hasText;
  bool readOnly;
};

struct EditCommands {
  std::function<void()> undo, redo, cut, copy, paste, remove, selectAll;
};

void showMenu(QWidget* input, const EditState& state, const EditCommands& commands, QPoint place) {
  auto* menu = new QMenu(input);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const QString& caption, QKeySequence::StandardKey key, bool enabled, const std::function<void()>& work) {
    auto* action = menu->addAction(caption);
    if (key != QKeySequence::UnknownKey) action->setShortcut(key);
    action->setEnabled(enabled);
    connectGuarded(action, &QAction::triggered, input, [work] { work(); });
  };
  const bool writable = !state.readOnly;
  add(u"Geri Al"_s, QKeySequence::Undo, writable && state.canUndo, commands.undo);
  add(u"Yinele"_s, QKeySequence::Redo, writable && state.canRedo, commands.redo);
  menu->addSeparator();
  add(u"Kes"_s, QKeySequence::Cut, writable && state.hasSelection, commands.cut);
  add(u"Kopyala"_s, QKeySequence::Copy, state.hasSelection, commands.copy);
  add(u"Yapıştır"_s, QKeySequence::Paste, writable && !QApplication::clipboard()->text().isEmpty(), commands.paste);
  add(u"Sil"_s, QKeySequence::UnknownKey, writable && state.hasSelection, commands.remove);
  menu->addSeparator();
  add(u"Tümünü Seç"_s, QKeySequence::SelectAll, state.hasText, commands.selectAll);
  menu->popup(place);
}

}  // namespace

void showEditMenu(EditLine* line, QPoint place) {
  showMenu(line, {line->isUndoAvailable(), line->isRedoAvailable(), line->hasSelectedText(), !line->text().isEmpty(), line->isReadOnly()},
           {[line] { line->undo(); }, [line] { line->redo(); }, [line] { line->cut(); }, [line] { line->copy(); },
            [line] { line->pasteText(QApplication::clipboard()->text()); }, [line] { line->del(); }, [line] { line->selectAll(); }},
           place);
}

void showEditMenu(QPlainTextEdit* memo, QPoint place) {
  const auto* document = memo->document();
  showMenu(memo,
           {document->isUndoAvailable(), document->isRedoAvailable(), memo->textCursor().hasSelection(), !document->isEmpty(),
            memo->isReadOnly()},
           {[memo] { memo->undo(); }, [memo] { memo->redo(); }, [memo] { memo->cut(); }, [memo] { memo->copy(); },
            [memo] { memo->paste(); }, [memo] { memo->textCursor().removeSelectedText(); }, [memo] { memo->selectAll(); }},
           place);
}
