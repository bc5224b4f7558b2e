#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZPlug.h>

class OZ_API ZPlugArray : public ZArray<ZPlug> {
public:
    using ZArray::ZArray;
};
