#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZColor.h>

class ZColorArray : public ZArray<ZColor> {
public:
    using ZArray::ZArray;
};
