#include "app/workspace_commands.h"

#include "toolkit/shell/ribbon.h"

#include <QAction>
#include <QIcon>
#include <QMenu>

#include <array>

using namespace Qt::StringLiterals;

namespace {
struct CommandRow {
  QStringView place;  ///< group of the ribbon or, with InMenu, the command whose menu holds this one
  QStringView caption;
  QStringView objectName;
  QStringView icon;  ///< of the theme, or a file of the program's own
  QStringView shortcut = {};
  int traits = 0;
};

enum Trait {
  InMenu = 1,
  IsMenu = 2,
  QuickAccess = 4,
  Guarded = 8,  ///< needs a right, whose path is the captions on the way to the command
};

constexpr QStringView Slips = u"Fişler";
constexpr QStringView Windows = u"Pencereler";
constexpr QStringView Work = u"İşlemler";
constexpr QStringView Exit = u"Çıkış";
constexpr QStringView Cards = u"dxBarSubItem7";
constexpr QStringView Settings = u"dxBarSubItem1";

constexpr auto Commands = std::to_array<CommandRow>({
    {Slips, u"Yeni Servis Fişi", u"dxBarLargeButton1", u"x-office-document", u"Ctrl+N", QuickAccess | Guarded},
    {Slips, u"Servis Fişleri", u"dxBarLargeButton2", u"folder-documents", u"Ctrl+L", QuickAccess},
    {Slips, u"Bakım Sözleşmesi", u"contracts", u"application-pkcs7-signature"},
    {Slips, u"Kartlar", Cards, u"x-office-address-book", {}, IsMenu | QuickAccess | Guarded},
    {Cards, u"Müşteri Kartları", u"dxBarButton16", u"system-users", {}, InMenu | Guarded},
    {Cards, u"Cihaz Kartları", u"dxBarButton17", u"computer", {}, InMenu | Guarded},
    {Cards, u"Dış Servis Kartları", u"dxBarButton18", u"folder-remote", {}, InMenu | Guarded},
    {Cards, u"Servis Tipleri", u"dxBarButton22", u"tag", {}, InMenu | Guarded},
    {Windows, u"Alt Alta", u"tileRows", u":/tile_rows.svg"},
    {Windows, u"Yan Yana", u"tileColumns", u":/tile_columns.svg"},
    {Windows, u"Basamakla", u"cascade", u":/cascade.svg"},
    {Windows, u"Tam Ekran", u"maximizeAll", u":/maximize_all.svg"},
    {Windows, u"Hepsini Gizle", u"minimizeAll", u":/minimize_all.svg"},
    {Windows, u"Hepsini Göster", u"restoreAll", u":/restore_all.svg"},
    {Work, u"Gelen Aramalar", u"calls", u"audio-headset"},
    {Work, u"Hatırlatma", u"reminders", u"preferences-desktop-notification-bell", {}, QuickAccess},
    {Work, u"Ayarlar", Settings, u"systemsettings", {}, IsMenu | QuickAccess | Guarded},
    {Settings, u"Döviz Kurları", u"rates", u"view-currency-list", {}, InMenu},
    {Settings, u"Şirket Bilgileri", u"company", u"user-home", {}, InMenu},
    {Settings, u"Parametreler", u"parameters", u"settings-configure", {}, InMenu},
    {Settings, u"SMS Tanımları", u"smsSettings", u"smartphone", {}, InMenu},
    {Settings, u"E-POSTA Tanımları", u"mailSettings", u"mail-message", {}, InMenu},
    {Exit, u"Programı Kapat", u"closeProgram", u"application-exit", {}, QuickAccess},
});

QIcon iconOf(QStringView name) {
  return name.startsWith(u':') ? QIcon(name.toString()) : QIcon::fromTheme(name.toString());
}

QIcon iconOfGroup(QStringView group) {
  for (const CommandRow& row : Commands)
    if (row.place == group) return iconOf(row.icon);
  return {};
}
}  // namespace

WorkspaceCommands buildWorkspaceCommands(Ribbon& ribbon, QObject* owner) {
  WorkspaceCommands commands;
  QHash<QStringView, RibbonGroup*> groups;
  for (const CommandRow& row : Commands) {
    auto* action = new QAction(iconOf(row.icon), row.caption.toString(), owner);
    action->setObjectName(row.objectName);
    if (!row.shortcut.isEmpty()) action->setShortcut(QKeySequence(row.shortcut.toString(), QKeySequence::PortableText));
    action->setShortcutContext(Qt::ApplicationShortcut);  // also in what stands open beside the workspace, as the reminders do
    commands.insert(action->objectName(), action);
    if (row.traits & IsMenu) action->setMenu(new QMenu(&ribbon));
    if (row.traits & InMenu) {
      commands[row.place.toString()]->menu()->addAction(action);
    } else {
      if (!groups.contains(row.place))
        groups.insert(row.place, ribbon.addGroup(row.place.toString(), iconOfGroup(row.place)));
      groups[row.place]->addCommand(action);
    }
    if (row.traits & QuickAccess) ribbon.addQuickAccess(action);
  }
  commands[u"rates"_s]->setVisible(false);  // the command exists and is never shown
  return commands;
}

QList<std::pair<QString, QString>> ribbonRights() {
  QHash<QStringView, QString> menuPaths;
  QList<std::pair<QString, QString>> rights;
  for (const CommandRow& row : Commands) {
    const QString path = (row.traits & InMenu) ? menuPaths[row.place] + u'\\' + row.caption.toString() : row.caption.toString();
    if (row.traits & IsMenu) menuPaths.insert(row.objectName, path);
    if (row.traits & Guarded) rights.append({path, row.objectName.toString()});
  }
  return rights;
}
