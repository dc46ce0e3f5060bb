#pragma once
// The model-dependent limits are facts of the parameters and live with the parameter table.
#include "params/ModelLimits.h"
