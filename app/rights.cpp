#include "app/rights.h"

#include "base/exceptions.h"
#include "app/login_rules.h"

#include <QStringList>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
const QString separatorText(13, u'—');
}

int CheckTree::stateIndex(const QString& path) const {
  const Node* node = &root_;
  for (const QString& caption : path.split(u'\\')) {
    const auto child = std::ranges::find(node->children, caption, &Node::caption);
    if (child == node->children.end()) throw Exception(u"\"%1\" yolunda komut yok."_s.arg(path));
    node = &*child;
  }
  return node->state;
}

void CheckTree::setStateIndex(const QString& path, int state) {
  Node* node = &root_;
  for (const QString& caption : path.split(u'\\')) {
    auto child = std::ranges::find(node->children, caption, &Node::caption);
    if (child == node->children.end()) child = node->children.insert(child, Node{caption, Right::Unchecked, {}});
    node = &*child;
  }
  node->state = state;
}

int Rights::check(const QString& account, const CheckTree& tree, const QString& path,
                  const std::function<void(const std::exception& error)>& onFailure) noexcept {
  if (LoginRules::isMaster(account)) return Right::Master;
  if (path.contains(separatorText)) return Right::Unchecked;
  try {
    try {
      return tree.stateIndex(path);
    } catch (const std::exception& error) {
      onFailure(error);
    }
  } catch (...) {
    std::fputs("a denied command could not be logged\n", stderr);
  }
  return Right::Checked;
}
