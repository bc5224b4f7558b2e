#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>

// A long computation the user may interrupt. Between begin and end, code
// polls isInterruptRequested() and stops early when it returns true.
class OZ_API ZComputation {
public:
    ZComputation() = default;
    ~ZComputation();
    ZComputation(const ZComputation&) = delete;
    ZComputation& operator=(const ZComputation&) = delete;

    void beginComputation(bool showProgressBar = false, bool isInterruptable = false,
                          bool useWaitCursor = true);
    // True once an interrupt was requested after beginComputation() of an
    // interruptible computation.
    bool isInterruptRequested() const;
    void endComputation();

    ZStatus setProgressRange(int minValue, int maxValue);
    ZStatus setProgress(int value);
    int progress() const { return m_progress; }
    int progressMin() const { return m_min; }
    int progressMax() const { return m_max; }
    ZStatus setProgressStatus(const ZString& text);

private:
    bool m_active = false;
    bool m_interruptible = false;
    unsigned long long m_epoch = 0;
    int m_min = 0, m_max = 100, m_progress = 0;
};
