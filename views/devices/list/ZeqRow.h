#pragma once

#include "platform/client/ZeqRsp.h"

#include <string>

/// Text of a record's key; empty if it is absent.
inline std::string zeqRowText(const json_t* row, const char* key) {
    const char* text = ZeqRspUtil_getStringParam(row, key);
    return text ? text : "";
}

inline unsigned zeqRowNumber(const json_t* row, const char* key) {
    return static_cast<unsigned>(ZeqRspUtil_getIntegerParam(row, key));
}
