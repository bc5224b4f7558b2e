#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZString.h>

class OZ_API ZStringArray : public ZArray<ZString> {
public:
    using ZArray::ZArray;
};
