#include "data/MeshData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnMeshData.h>

ZFnMeshData::ZFnMeshData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnMeshData::create(ZStatus* status) {
    m_object = oz::ObjectAccess::wrap(std::make_shared<oz::MeshData>());
    oz::setStatus(status, ZStatus::kSuccess);
    return m_object;
}
