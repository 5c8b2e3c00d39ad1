#pragma once

#include "toolkit/report/report_document.h"

#include <QObject>
#include <QUndoStack>

/// One property of one node that gets another value.
struct PropertyChange {
  ReportNode* node = nullptr;
  QString property;
  PropertyValue value;
};
using PropertyChanges = std::vector<PropertyChange>;

class Gesture;

/// A report while it is edited: every change is a step of an undo stack, and whoever looks at it is told what changed. Nodes
/// keep their identity while they are taken out and put back. The selection is either objects of one page, or one band, page
/// or the report.
class ReportEditor : public QObject {
  Q_OBJECT
 public:
  explicit ReportEditor(QObject* parent = nullptr);

  /// Begins with another report; nothing can be undone then.
  void open(ReportDocument document);
  const ReportDocument& document() const { return document_; }
  ReportNode& root() { return document_.root(); }
  QUndoStack& steps() { return steps_; }
  bool isChanged() const { return !steps_.isClean(); }

  // Steps. Each has the name under which it is undone.

  /// Sets values; those that are set already are left out, and without any left nothing is a step. What joins goes into the
  /// step before when that one has its name and changed the same properties: a key held down.
  void change(const QString& name, PropertyChanges changes, bool joins = false);
  void change(const QString& name, ReportNode& node, const QString& property, PropertyValue value) {
    change(name, {{&node, property, std::move(value)}});
  }
  /// Puts new nodes into parent, one behind the other from place on, and selects them.
  std::vector<ReportNode*> insert(const QString& name, ReportNode& parent, size_t place, std::vector<std::unique_ptr<ReportNode>> nodes);
  ReportNode* insert(const QString& name, ReportNode& parent, size_t place, std::unique_ptr<ReportNode> node);
  /// Takes nodes out. The root cannot be taken, nor the last page.
  void remove(const QString& name, const std::vector<ReportNode*>& nodes);
  /// Gives a node another place: among the children of parent as they stand when it is taken out.
  void move(const QString& name, ReportNode& node, ReportNode& parent, size_t place);
  /// Puts another report in place of the whole one: an earlier version, the delivered template.
  void replace(const QString& name, ReportDocument document);

  // Page and selection

  /// The page that is worked on; null while the report has none.
  ReportNode* page() const { return page_; }
  void showPage(ReportNode& page);
  std::vector<ReportNode*> pages();

  const std::vector<ReportNode*>& selection() const { return selection_; }
  /// The selected objects; none while something else is selected.
  std::vector<ReportNode*> selectedObjects() const;
  bool isSelected(const ReportNode* node) const;
  /// Nodes of other kinds than objects count alone; of objects those on the page of the first.
  void select(std::vector<ReportNode*> nodes);
  void select(ReportNode* node) { select(std::vector{node}); }

 Q_SIGNALS:
  void changed(const std::vector<ReportNode*>& nodes);
  void inserted(const std::vector<ReportNode*>& nodes);
  /// The nodes stand nowhere any more, but live on in their step.
  void removed(const std::vector<ReportNode*>& nodes);
  /// Another document: no node from before is part of it.
  void replaced();
  /// Pages came, went, or changed their order or names.
  void pagesChanged();
  void selectionChanged();
  /// Another page, or the same one anew after everything was replaced.
  void pageShown();

 private:
  friend class ReportStep;
  friend class Gesture;
  void push(QUndoCommand* step);
  void leaveOut(const std::vector<ReportNode*>& nodes);
  /// Shows a page that the report has: the one of these nodes, or the first one when the page is gone.
  void findPage(const std::vector<ReportNode*>& nodes);

  ReportDocument document_;
  QUndoStack steps_;
  std::vector<ReportNode*> selection_;
  ReportNode* page_ = nullptr;
  Gesture* gesture_ = nullptr;
};

/// Everything that is done while one lives is one step, and nothing done is none. One within another belongs to the outer one.
class Gesture {
 public:
  Gesture(ReportEditor& editor, const QString& name);
  ~Gesture();
  Gesture(const Gesture&) = delete;
  Gesture& operator=(const Gesture&) = delete;

 private:
  friend class ReportEditor;
  ReportEditor& editor_;
  QString name_;
  bool isBegun_ = false;
};

/// The page that a node is, or stands on; null for the report.
ReportNode* pageOf(ReportNode* node);
const ReportNode* pageOf(const ReportNode* node);

/// A name for a node of that kind that no other one in the report has: "Metin3". A wanted name is kept when it is free, and
/// otherwise gets the number. Names of taken are in use as well.
QString freeName(const ReportDocument& document, NodeKind kind, const QString& wanted = {}, const QStringList& taken = {});
