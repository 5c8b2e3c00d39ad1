#pragma once

#include <QByteArray>
#include <QStringList>

#include <vector>

/// One kind of device as the catalogue keeps it; an empty text is none.
struct CatalogueDevice {
  QString name;
  QString type;
  QString make;
  QString makerCode;
};

/// A line of the file that is not taken.
struct RefusedLine {
  int line = 0;  ///< of the file, from 1
  QString reason;
};

struct DeviceFile {
  std::vector<CatalogueDevice> devices;
  std::vector<RefusedLine> refused;  ///< by line
  QStringList unknownColumns;        ///< headers whose cells are left out
};

/// Fills the catalogue of devices from a file, since no screen does. A device is known by its name and make together.
namespace DeviceImport {

/// The devices in a file of separated values whose first line names the columns, by their names or captions in any order.
/// Texts become Turkish capitals. Throws Exception when the file as a whole cannot be used.
DeviceFile read(const QByteArray& file);

/// SQL text in latin5 that adds the devices that the catalogue lacks and brings the others up to date, all or nothing; its
/// result is one row: added, changed, unchanged.
QByteArray statements(const std::vector<CatalogueDevice>& devices);

}  // namespace DeviceImport
