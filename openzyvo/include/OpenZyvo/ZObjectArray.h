#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZObject.h>

class OZ_API ZObjectArray : public ZArray<ZObject> {
public:
    using ZArray::ZArray;
};
