#pragma once

#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZTypes.h>

class ZCallbackIdArray : public ZArray<ZCallbackId> {
public:
    using ZArray::ZArray;
};
