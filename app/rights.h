#pragma once

#include <QString>

#include <functional>
#include <vector>

/// What a check of a command answers. A check mark means that the command is forbidden.
namespace Right {
inline constexpr int Master = 0;         ///< allowed without a look at the tree
inline constexpr int Unchecked = 1;      ///< allowed; separators as well
inline constexpr int Checked = 2;        ///< denied; every failure as well
inline constexpr int PartlyChecked = 3;  ///< allowed
}  // namespace Right

/// Tree of check marks, one node per command, addressed by the captions on the way to it joined by "\".
class CheckTree {
 public:
  /// State index of the node. Throws Exception when there is none.
  int stateIndex(const QString& path) const;
  /// Sets a node's state; nodes missing on the way are made unchecked.
  void setStateIndex(const QString& path, int state);

 private:
  struct Node {
    QString caption;
    int state = Right::Unchecked;
    std::vector<Node> children;
  };
  Node root_;
};

namespace Rights {

/// May that account run the command at path? The master account everything, anybody a separator, otherwise the tree
/// decides. Never throws: what fails, such as a path without a node, is handed to onFailure and counts as denied.
int check(const QString& account, const CheckTree& tree, const QString& path,
          const std::function<void(const std::exception& error)>& onFailure) noexcept;

}  // namespace Rights
