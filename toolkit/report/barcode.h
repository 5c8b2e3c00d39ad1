#pragma once

#include <QRect>
#include <QString>

#include <memory>
#include <vector>

/// A barcode as modules: bars are rectangles on a field of columns by rows. A linear symbol has one row. The quiet zone that
/// the symbology asks for is part of the field.
struct BarcodeSymbol {
  int columns = 0;
  int rows = 0;
  std::shared_ptr<const std::vector<QRect>> bars;
  QString text;  ///< as it is read by people; a check digit is in it
  bool isMatrix() const { return rows > 1; }
};

/// Encodes a text in one of the symbologies of the barcode's property ("code128", "qr", …). Throws EConvertError with a
/// Turkish reason for what the symbology cannot hold: nothing is ever altered to make it fit.
BarcodeSymbol encodeBarcode(const QString& symbology, const QString& text);
