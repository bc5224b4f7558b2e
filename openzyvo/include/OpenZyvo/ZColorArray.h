#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZColor.h>

class OZ_API ZColorArray : public ZArray<ZColor> {
public:
    using ZArray::ZArray;
};
