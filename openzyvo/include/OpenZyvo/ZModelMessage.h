#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZMessage.h>

// Callbacks about the scene model as a whole.
class OZ_API ZModelMessage : public ZMessage {
public:
    enum Message {
        // The active selection changed.
        kActiveListModified = 0,
        kLast
    };

    using Function = void (*)(void* clientData);

    static ZCallbackId addCallback(Message message, Function function, void* clientData = nullptr,
                                   ZStatus* status = nullptr);
};
