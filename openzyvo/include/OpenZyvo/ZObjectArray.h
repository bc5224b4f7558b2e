#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZObject.h>

class ZObjectArray : public ZArray<ZObject> {
public:
    using ZArray::ZArray;
};
