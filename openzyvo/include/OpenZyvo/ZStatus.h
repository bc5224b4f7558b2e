#pragma once

#include <OpenZyvo/ZApiExport.h>

class ZString;

// The outcome of an API call. Failures travel as values, never as exceptions.
class OZ_API ZStatus {
public:
    enum ZStatusCode {
        kSuccess = 0,
        kFailure,
        kInsufficientMemory,
        kInvalidParameter,
        kUnknownParameter,
        kNotImplemented,
        kNotFound,
        kEndOfFile,
    };

    ZStatus() = default;
    ZStatus(ZStatusCode code)
        : m_code(code) {}

    ZStatusCode statusCode() const { return m_code; }
    bool error() const { return m_code != kSuccess; }
    explicit operator bool() const { return m_code == kSuccess; }
    void clear() { m_code = kSuccess; }

    // The description of the code, as the host prints it.
    ZString errorString() const;

    // Writes "<text>: <description>" (or just the description when the text is
    // empty) and a line end to standard error.
    void perror(const ZString& text) const;
    void perror(const char* text = "") const;

    friend bool operator==(const ZStatus& a, const ZStatus& b) { return a.m_code == b.m_code; }
    friend bool operator==(const ZStatus& a, ZStatusCode code) { return a.m_code == code; }

private:
    ZStatusCode m_code = kSuccess;
};
