#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZMessage.h>

class ZStringArray;

// Callbacks about the scene as a whole: new scenes, file reads and saves,
// plug-in loads.
class OZ_API ZSceneMessage : public ZMessage {
public:
    enum Message {
        kSceneUpdate = 0,
        kBeforeNew = 1,
        kAfterNew = 2,
        kBeforeImport = 3,
        kAfterImport = 4,
        kBeforeOpen = 5,
        kAfterOpen = 6,
        kBeforeFileRead = 7,
        kAfterFileRead = 8,
        kBeforeSave = 9,
        kAfterSave = 10,
        kBeforeExport = 11,
        kAfterExport = 12,
        // The string-array forms receive the plug-in's path and name.
        kBeforePluginLoad = 13,
        kAfterPluginLoad = 14,
        kBeforePluginUnload = 15,
        kAfterPluginUnload = 16,
        kExiting = 17,
        kLast
    };

    using Function = void (*)(void* clientData);
    using StringArrayFunction = void (*)(const ZStringArray& strings, void* clientData);

    static ZCallbackId addCallback(Message message, Function function, void* clientData = nullptr,
                                   ZStatus* status = nullptr);
    static ZCallbackId addStringArrayCallback(Message message, StringArrayFunction function,
                                              void* clientData = nullptr, ZStatus* status = nullptr);
};
