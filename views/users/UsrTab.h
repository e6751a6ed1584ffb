#pragma once

/// What the Users page does with accounts, and its details tabs; values are the rows' places.
enum class UserAction { New, Login, Logout, Delete };
enum class UsrTab { Attributes, Permissions, Targets, Favorites, Osd, OsdFx, Status };
