#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZString.h>

class ZStringArray : public ZArray<ZString> {
public:
    using ZArray::ZArray;
};
