#include "service/slip_parameters.h"

#include "app/parameters.h"

namespace SlipParameters {

bool isOn(ParameterFiles::Switch parameter) { return fParametreler != nullptr && fParametreler->isChecked(parameter); }

bool isPassive(const QString& status) {
  if (fParametreler == nullptr) return false;
  const auto row = fParametreler->statusRow(status);
  return row && !row->active;
}

}  // namespace SlipParameters
