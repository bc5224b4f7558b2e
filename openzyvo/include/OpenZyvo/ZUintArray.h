#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>

class OZ_API ZUintArray : public ZArray<unsigned int> {
public:
    using ZArray::ZArray;
};
