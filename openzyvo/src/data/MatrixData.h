#pragma once

#include "data/ValueData.h"

#include <OpenZyvo/ZMatrix.h>

namespace oz {

// The value of a matrix attribute.
using MatrixData = ValueData<ZMatrix, ZFn::kMatrixData, ZFnData::kMatrix>;

} // namespace oz
