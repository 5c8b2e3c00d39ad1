#pragma once

#include "toolkit/report/report_value.h"

#include <vector>

/// Functions and arithmetic of the expressions on plain values. What cannot be done throws ExpressionFault.
namespace ExpressionFunctions {

enum class Function {
  Choice, Sum, Count, Average, Least, Most, Upper, Lower, Number, Date, Round, Length, Part, Trim, IsEmpty, WholeNumber,
};

struct FunctionInfo {
  Function function;
  QString name;       ///< folded
  int least;          ///< arguments
  int most;
  QString signature;  ///< as a designer shows it, Turkish
};

const std::vector<FunctionInfo>& all();
/// Null when there is none of that folded name.
const FunctionInfo* find(const QString& folded);
/// True for those that go over the rows of a data set.
bool isOverRows(Function function);
ReportValue call(Function function, const std::vector<ReportValue>& values);

/// A value as a number: not set is 0, a text is read as the program's numbers are.
double number(const ReportValue& value);
bool truth(const ReportValue& value);
/// Below, at or above 0 as left stands to right. Texts without regard to case.
int compare(const ReportValue& left, const ReportValue& right);
QString joined(const ReportValue& left, const ReportValue& right);
double divided(double left, double right);
double remainder(double left, double right);

/// Gathers one value per row.
class Gatherer {
 public:
  explicit Gatherer(Function function) : function_(function) {}
  void add(const ReportValue& value);
  ReportValue result() const;

 private:
  Function function_;
  double sum_ = 0;
  int count_ = 0;
  double least_ = 0;
  double most_ = 0;
};

}  // namespace ExpressionFunctions
