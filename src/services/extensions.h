// Libraries that extend the host's user-interface framework.
#pragma once

/// Makes a library known as an extension. `instance` stands for it. False when it is one already.
bool AttachExtension(const void* instance);
/// Makes the dialogs, icons and texts of an attached extension available. False when it is not
/// attached.
bool RegisterExtensionResources(const void* instance);
void DetachExtension(const void* instance);
