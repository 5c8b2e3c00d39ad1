#pragma once

#include "toolkit/report/designer/report_editor.h"

#include <QUndoCommand>

/// A step of undo: what it does to the document, and what it tells.
class ReportStep : public QUndoCommand {
 public:
  ReportStep(ReportEditor& editor, const QString& name) : QUndoCommand(name), editor_(editor) {}

 protected:
  ReportDocument& document() { return editor_.document_; }
  /// No longer in the document: not selected either.
  void tellRemoved(const std::vector<ReportNode*>& nodes);
  void tellInserted(const std::vector<ReportNode*>& nodes);
  /// Undone or redone, a step is seen.
  void showPageOf(const std::vector<ReportNode*>& nodes);

  ReportEditor& editor_;
};

/// The one change of values: done and undone it swaps what it holds with what the nodes have.
class ChangeStep : public ReportStep {
 public:
  ChangeStep(ReportEditor& editor, const QString& name, PropertyChanges changes, bool joins);

  int id() const override { return 1; }
  bool mergeWith(const QUndoCommand* other) override;
  void redo() override { swap(); }
  void undo() override { swap(); }

 private:
  void swap();

  PropertyChanges changes_;
  bool joins_;
};

/// Where nodes stand, or will stand again. Owns them while they are out.
struct NodePlace {
  ReportNode* parent = nullptr;
  size_t index = 0;
  ReportNode* node = nullptr;
  std::unique_ptr<ReportNode> out = {};
};

/// Nodes that are put in, or taken out; the one is the other's way back. Places are in document order.
class PlaceStep : public ReportStep {
 public:
  PlaceStep(ReportEditor& editor, const QString& name, std::vector<NodePlace> places, bool putsIn);

  void redo() override { putsIn_ ? putIn() : takeOut(); }
  void undo() override { putsIn_ ? takeOut() : putIn(); }

 private:
  std::vector<ReportNode*> nodes() const;
  void putIn();
  void takeOut();

  std::vector<NodePlace> places_;
  bool putsIn_;
};

class MoveStep : public ReportStep {
 public:
  MoveStep(ReportEditor& editor, const QString& name, ReportNode& node, ReportNode& parent, size_t place);

  void redo() override { go(); }
  void undo() override { go(); }

 private:
  void go();

  ReportNode& node_;
  ReportNode* parent_;
  size_t place_;
};

class ReplaceStep : public ReportStep {
 public:
  ReplaceStep(ReportEditor& editor, const QString& name, ReportDocument document);

  void redo() override { swap(); }
  void undo() override { swap(); }

 private:
  void swap();

  ReportDocument other_;
};
