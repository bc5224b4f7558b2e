#pragma once

#include "commands/Value.h"

#include <OpenZyvo/ZFnData.h>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace oz {
class Data;
}

namespace oz::scene {

// Typed data as setAttr -type takes it and scene files write it:
//   string       "text"
//   stringArray  n "a" "b" ...
//   doubleArray  n v1 ... vn          Int32Array  n i1 ... in
//   vectorArray  n x y z ...          pointArray  n x y z w ...
//   matrix       16 numbers, row by row
//   mesh         see MeshText.h
// A list of array values stands for the items without the count.

// Makes the data of `type` from `values`; on failure `error` says why.
std::shared_ptr<Data> parseData(ZFnData::Type type, std::span<const cmd::Value> values, std::string& error);

// Appends the values of `data` (what follows -type "<name>") to `out`;
// false for kinds of data that scene files do not hold.
bool formatData(const Data& data, std::string& out);

// The data as getAttr returns it: strings, arrays (vectors and points
// flattened, a mesh as its points), or nothing for other kinds.
std::optional<cmd::Value> dataValue(const Data& data);

} // namespace oz::scene
