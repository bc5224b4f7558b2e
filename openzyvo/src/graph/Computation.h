#pragma once

namespace oz {

// Asks every interruptible computation running now to stop (the host calls
// it on the user's interrupt key; tests call it directly).
void requestComputationInterrupt();

} // namespace oz
