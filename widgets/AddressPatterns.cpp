#include "widgets/AddressPatterns.h"

// The pieces are joined while compiling.
#define HEX "[0-9A-Fa-f]{1,4}"
#define OCTET "(25[0-5]|2[0-4][0-9]|1[0-9][0-9]|[1-9]?[0-9])"
// On purpose: the dot stands for any character here. What has been accepted stays accepted.
#define TAIL_V4 "(" OCTET "(." OCTET "){3})"

#define IPV4_OCTET "(25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?)"
#define IPV4 "^((" IPV4_OCTET "\\.){3}" IPV4_OCTET ")$"

// One branch for each number of groups in front of the "::".
#define IPV6                                                                                                 \
    "^(((" HEX ":){7}(" HEX "|:))"                                                                           \
    "|((" HEX ":){6}(:" HEX "|" TAIL_V4 "|:))"                                                               \
    "|((" HEX ":){5}(((:" HEX "){1,2})|:" TAIL_V4 "|:))"                                                     \
    "|((" HEX ":){4}(((:" HEX "){1,3})|((:" HEX ")?:" TAIL_V4 ")|:))"                                        \
    "|((" HEX ":){3}(((:" HEX "){1,4})|((:" HEX "){0,2}:" TAIL_V4 ")|:))"                                    \
    "|((" HEX ":){2}(((:" HEX "){1,5})|((:" HEX "){0,3}:" TAIL_V4 ")|:))"                                    \
    "|((" HEX ":){1}(((:" HEX "){1,6})|((:" HEX "){0,4}:" TAIL_V4 ")|:))"                                    \
    "|(:(((:" HEX "){1,7})|((:" HEX "){0,5}:" TAIL_V4 ")|:)))$"

#define HOST                                                                                                 \
    "^(([a-zA-Z0-9][a-zA-Z0-9-]{0,61}[a-zA-Z0-9])\\.)+([a-zA-Z]|[a-zA-Z][a-zA-Z0-9-]{0,61}[a-zA-Z0-9])$"

const char* const kEidPattern = "^([0-9a-zA-Z]{6,6}-[0-9a-zA-Z]{6,6})$";
const char* const kIpV4Pattern = IPV4;
const char* const kIpV6Pattern = IPV6;
const char* const kIpPattern = IPV6 "|" IPV4 "|^$";
const char* const kHostPattern = IPV6 "|" IPV4 "|" HOST "|^$";
const char* const kMacPattern =
    "^((([0-9A-Fa-f]{2}:){5}([0-9A-Fa-f]{2}))|(([0-9A-Fa-f]{2}:){7}([0-9A-Fa-f]{2}))"
    "|(([0-9A-Fa-f]{2}-){5}([0-9A-Fa-f]{2}))|(([0-9A-Fa-f]{2}-){7}([0-9A-Fa-f]{2})))$|^$";
