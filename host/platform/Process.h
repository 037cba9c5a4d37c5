#pragma once

namespace zanhost {

/// Whatever this process makes from now on is its owner's alone: files and folders are closed to other
/// accounts, and a crash leaves no core file, which would hold the installation's key and passwords. Holds
/// for its children, too.
void KeepPrivate();

/// Lets this process open as many files and connections as the system allows it.
void RaiseDescriptorLimit();

}  // namespace zanhost
