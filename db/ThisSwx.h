#pragma once

/// Index of the record in "swx" that is the Switch one is logged in to. It stays 1 when Switches exchange
/// their roles: the records change places then.
inline constexpr unsigned kThisSwxIndex = 1;
