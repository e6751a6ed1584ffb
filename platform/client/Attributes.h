// Attribute store: fixed facts about this Switch, such as "firmware.appversion" and "switch.oem.short".
#ifndef PLATFORM_CLIENT_ATTRIBUTES_H
#define PLATFORM_CLIENT_ATTRIBUTES_H

#ifdef __cplusplus
extern "C" {
#endif

/// Value of the attribute, or `fallback` (0 allowed) when the store lacks it. The text lives as long as the
/// process. The store is the file named by the environment's MIRL_ATTRIBUTES, else /etc/mirl/attributes, read
/// once, at the first call, from any thread: lines of key = value, blanks around both ignored, lines that
/// start with # are comments.
const char* Attributes_getString(const char* key, const char* fallback);

#ifdef __cplusplus
}
#endif

#endif
