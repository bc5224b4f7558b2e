#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZTypes.h>

class ZCallbackIdArray;

// Base of the message classes: removal of installed callbacks. Callbacks run
// on the main thread, synchronously with the change they report.
class OZ_API ZMessage {
public:
    static ZStatus removeCallback(ZCallbackId id);
    static ZStatus removeCallbacks(ZCallbackIdArray& ids);
    // The id of the callback running now (0 outside callbacks).
    static ZCallbackId currentCallbackId();
    // Every callback installed on `node`.
    static ZStatus nodeCallbacks(const ZObject& node, ZCallbackIdArray& ids);
};
