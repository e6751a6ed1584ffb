#pragma once

/// Tabs of the System Settings page, in their order.
enum class SysTab { Mgr, Mirl, Osd, Events, Defaults, Other, Rap };

/// Its actions, in their order.
enum class SysAction { Save, Load, RestoreFull, RestorePartial };
