#pragma once

class MemoEdit;
class QListWidget;

/// What the message templates of SMS and e-mail share: a list of the markers that a slip's values replace.
namespace MarkerMemo {

/// A list of all markers in their order; a double click or ENTER puts the chosen one with a blank behind the memo's selection.
QListWidget* markerList(MemoEdit& memo);

}  // namespace MarkerMemo
