#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArray.h>
#include <OpenZyvo/ZPoint.h>

class OZ_API ZPointArray : public ZArray<ZPoint> {
public:
    using ZArray::ZArray;
};
