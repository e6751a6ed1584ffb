#pragma once

/// Which pages a logged-in user gets.
enum class UiVariant { Master, Managed, Slave };

/// By the role of this Switch: controller of its cascade, under an external manager, and whether the full
/// interface stays available then.
UiVariant uiVariantFor(bool controller, bool managed, bool fullMirlWhenManaged);
