#pragma once

#include "toolkit/report/band_layout.h"

/// What a designed report is shown with: the data that the program will print it with, as they are now.
struct DesignSample {
  ReportData data;
  QHash<QString, QString> barcodes = {};  ///< texts that the program puts into barcodes, by the object's name
  RichTexts richTexts = {};
  QString printer = {};                   ///< that such papers go to; empty is the system's default
  QString documentName = {};              ///< that such papers have among the printer's jobs and as files
};

/// The same names with made-up values: every variable shows its explanation, every data set has some rows.
DesignSample exampleOf(const DesignSample& sample);

/// The report with the texts that the program will put in, as it will be laid out.
ReportDocument filledWith(const ReportDocument& document, const DesignSample& sample);

/// Whether an object has an empty text that nobody fills: the next datum is for it.
bool waitsForText(const ReportNode& object, const DesignSample& sample);

/// How a name of the data is written when it is put down: amounts with two places, anything else as it is.
QString usualFormat(const QString& name, const DesignSample& sample);

/// Where the data stand for a band, or for that of an object: at that row of its data set.
class SampleContext {
 public:
  SampleContext(const DesignSample& sample, const ReportNode& node, int row = 0);
  const EvaluationContext& context() const { return context_; }
  /// Rows of the band's data set; 1 when it has none.
  int rowCount() const { return rowCount_; }

 private:
  std::vector<RowPlace> places_;
  EvaluationContext context_;
  int rowCount_ = 1;
};

/// An object by itself, laid out in a rectangle whose upper left corner is the origin.
struct DesignedObject {
  ReportPage page;       ///< primitives only
  QRectF bounds;         ///< of object and primitives
  QStringList faults;
  QStringList notices;
};

/// As it is designed: texts with their expressions as written, barcodes with a text that fits.
DesignedObject designedObject(const ReportNode& object, const DesignSample& sample);
/// As it is printed with the data at that row.
DesignedObject printedObject(const ReportNode& object, const DesignSample& sample, int row = 0);
/// All objects of a band, or those that stand on a page itself, as they are printed at that row: grown, and pushed by others.
BandBox printedParts(const ReportNode& parent, const DesignSample& sample, int row = 0);
