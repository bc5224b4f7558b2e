#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZTypes.h>

class OZ_API ZCallbackIdArray : public ZArray<ZCallbackId> {
public:
    using ZArray::ZArray;
};
