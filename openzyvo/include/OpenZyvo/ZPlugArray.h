#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZPlug.h>

class ZPlugArray : public ZArray<ZPlug> {
public:
    using ZArray::ZArray;
};
