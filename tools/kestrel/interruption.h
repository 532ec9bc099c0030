#pragma once

namespace kestrel {

// From now on the first SIGINT or SIGTERM does not end the process, so that a run can end where its
// output is whole; a second one ends it. A signal that is ignored stays ignored.
void DeferInterruption();

bool IsInterrupted();

// Ends the process by the signal that came, if one did.
void EndIfInterrupted();

}  // namespace kestrel
