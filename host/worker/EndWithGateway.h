#pragma once

namespace zanhost {

/// From now on this process outlives its gateway by ten seconds at most. The end of its input ends an
/// ordinary worker long before; one that is stuck in an operation never looks at its input and is ended by a
/// signal. SIGTERM means the same, since a service manager sends it to gateway and workers alike: an
/// operation that runs has these ten seconds.
void EndWithGateway();

}  // namespace zanhost
