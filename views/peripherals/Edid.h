#pragma once

#include <memory>
#include <string>

/// One monitor description: an EDID 1.x base block of 128 bytes (VESA E-EDID standard) at the front of the
/// 256 bytes that the database holds.
class Edid {
public:
    /// Takes a copy. Only a size of 256 is accepted; another one is logged and leaves the object as it was.
    void populate(const char* bytes, unsigned size);

    /// Whether there is a block, it begins with the standard's header, and the manufacturer's reserved bit is
    /// clear. What is wrong is logged.
    bool isValid() const;

    // The object has to be populated for these.

    bool isDigital() const;
    /// Three letters, packed into bytes 8 and 9 with five bits each.
    void manufacturerIdGet(std::string& id) const;
    /// Four hexadecimal digits.
    void productCodeGet(std::string& code) const;

    /// Replaces `report` with the raw data and what every field of it means, in lines; also of a block that is not
    /// valid. Texts that the monitor brings stand in it byte for byte, whatever they are: see legible().
    /// On purpose: cuts the object to the base block.
    void fullDecodeGet(std::string& report);

    /// The report as UTF-8 that can be shown: what is neither printable ASCII nor a newline is U+FFFD.
    static std::string legible(const std::string& report);

protected:
    std::unique_ptr<unsigned char[]> mData;
    unsigned mLength = 0; // bytes in mData
};
