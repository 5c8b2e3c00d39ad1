#include "app/workspace_commands.h"

#include "toolkit/shell/ribbon.h"

#include <QAction>
#include <QIcon>
#include <QMenu>

#include <array>

using namespace Qt::StringLiterals;

namespace {
struct CommandRow {
  QStringView place;  ///< group of the ribbon or, with inMenu, the command whose menu holds this one
  QStringView caption;
  QStringView objectName;
  QStringView icon;  ///< of the theme, or a file of the program's own
  QStringView shortcut = {};
  bool inMenu = false;
  bool isMenu = false;
  bool quickAccess = false;
  bool guarded = false;  ///< needs a right, whose path is the captions on the way to the command
};

constexpr QStringView Slips = u"Fişler";
constexpr QStringView Windows = u"Pencereler";
constexpr QStringView Work = u"İşlemler";
constexpr QStringView Exit = u"Çıkış";
constexpr QStringView Cards = u"dxBarSubItem7";
constexpr QStringView Settings = u"dxBarSubItem1";

constexpr auto Commands = std::to_array<CommandRow>({
    {Slips, u"Yeni Servis Fişi", u"dxBarLargeButton1", u"x-office-document", u"Ctrl+N", false, false, true, true},
    {Slips, u"Servis Fişleri", u"dxBarLargeButton2", u"folder-documents", u"Ctrl+L", false, false, true},
    {Slips, u"Bakım Sözleşmesi", u"contracts", u"application-pkcs7-signature"},
    {Slips, u"Kartlar", Cards, u"x-office-address-book", {}, false, true, true, true},
    {Cards, u"Müşteri Kartları", u"dxBarButton16", u"system-users", {}, true, false, false, true},
    {Cards, u"Cihaz Kartları", u"dxBarButton17", u"computer", {}, true, false, false, true},
    {Cards, u"Dış Servis Kartları", u"dxBarButton18", u"folder-remote", {}, true, false, false, true},
    {Cards, u"Servis Tipleri", u"dxBarButton22", u"tag", {}, true, false, false, true},
    {Windows, u"Alt Alta", u"tileRows", u":/tile_rows.svg"},
    {Windows, u"Yan Yana", u"tileColumns", u":/tile_columns.svg"},
    {Windows, u"Basamakla", u"cascade", u":/cascade.svg"},
    {Windows, u"Tam Ekran", u"maximizeAll", u":/maximize_all.svg"},
    {Windows, u"Hepsini Gizle", u"minimizeAll", u":/minimize_all.svg"},
    {Windows, u"Hepsini Göster", u"restoreAll", u":/restore_all.svg"},
    {Work, u"Gelen Aramalar", u"calls", u"audio-headset"},
    {Work, u"Hatırlatma", u"reminders", u"preferences-desktop-notification-bell", {}, false, false, true},
    {Work, u"Ayarlar", Settings, u"systemsettings", {}, false, true, true, true},
    {Settings, u"Döviz Kurları", u"rates", u"view-currency-list", {}, true},
    {Settings, u"Şirket Bilgileri", u"company", u"user-home", {}, true},
    {Settings, u"Parametreler", u"parameters", u"settings-configure", {}, true},
    {Settings, u"SMS Tanımları", u"smsSettings", u"smartphone", {}, true},
    {Settings, u"E-POSTA Tanımları", u"mailSettings", u"mail-message", {}, true},
    {Exit, u"Programı Kapat", u"closeProgram", u"application-exit", {}, false, false, true},
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
    commands.insert(action->objectName(), action);
    if (row.isMenu) action->setMenu(new QMenu(&ribbon));
    if (row.inMenu) {
      commands[row.place.toString()]->menu()->addAction(action);
    } else {
      if (!groups.contains(row.place))
        groups.insert(row.place, ribbon.addGroup(row.place.toString(), iconOfGroup(row.place)));
      groups[row.place]->addCommand(action);
    }
    if (row.quickAccess) ribbon.addQuickAccess(action);
  }
  commands[u"rates"_s]->setVisible(false);  // the command exists and is never shown
  return commands;
}

QList<std::pair<QString, QString>> ribbonRights() {
  QHash<QStringView, QString> menuPaths;
  QList<std::pair<QString, QString>> rights;
  for (const CommandRow& row : Commands) {
    const QString path = row.inMenu ? menuPaths[row.place] + u'\\' + row.caption.toString() : row.caption.toString();
    if (row.isMenu) menuPaths.insert(row.objectName, path);
    if (row.guarded) rights.append({path, row.objectName.toString()});
  }
  return rights;
}
