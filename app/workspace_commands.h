#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include <utility>

class QAction;
class QObject;
class Ribbon;

/// Every command of the workspace by its object name.
using WorkspaceCommands = QHash<QString, QAction*>;

/// Fills the ribbon and its quick-access bar from the table of commands, in its order. The actions belong to owner. Not one
/// is connected: a command does nothing until the workspace says what.
WorkspaceCommands buildWorkspaceCommands(Ribbon& ribbon, QObject* owner);

/// The guarded commands: path of the right, captions joined by "\", and object name.
QList<std::pair<QString, QString>> ribbonRights();
