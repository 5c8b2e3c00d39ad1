#pragma once

#include "app/parameter_files.h"

/// What a slip reads from the workstation's parameters, at the moment it is asked. Without a parameter screen every switch
/// is off and no status is passive.
namespace SlipParameters {

bool isOn(ParameterFiles::Switch parameter);
/// True when the status was taken out of the slips' list.
bool isPassive(const QString& status);

}  // namespace SlipParameters
