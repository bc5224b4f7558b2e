#pragma once

#include <OpenZyvo/ZApiExport.h>

namespace ZHWRender {

// Base of what a draw override prepares for drawing one object. The viewport
// keeps it between draws and hands it back to the next prepareForDraw of the
// same object, unless it is marked to be deleted after use.
class OZ_API ZUserData {
public:
    explicit ZUserData(bool deleteAfterUse = false)
        : m_deleteAfterUse(deleteAfterUse) {}
    virtual ~ZUserData() = default;
    ZUserData(const ZUserData&) = delete;
    ZUserData& operator=(const ZUserData&) = delete;

    bool deleteAfterUse() const { return m_deleteAfterUse; }
    void setDeleteAfterUse(bool deleteAfterUse) { m_deleteAfterUse = deleteAfterUse; }

private:
    bool m_deleteAfterUse;
};

} // namespace ZHWRender
