#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZTime.h>

class OZ_API ZTimeArray : public ZArray<ZTime> {
public:
    using ZArray::ZArray;
};
