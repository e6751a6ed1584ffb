#pragma once

/// Whether devices reboot by themselves after a firmware update. True when the setting cannot be read.
bool devicesResetAfterUpgrade();
