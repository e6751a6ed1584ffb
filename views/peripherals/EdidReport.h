#pragma once

#include <string>

constexpr unsigned kEdidBaseBlock = 128; // bytes

/// Whether the eight bytes are those that every block begins with.
bool hasEdidHeader(const unsigned char* bytes);

/// Appends the bytes as hexadecimal numbers, sixteen a line.
void appendRawEdid(std::string& report, const unsigned char* bytes, unsigned length);

/// What the lists tell of a block, too.
struct EdidIdentity {
    std::string manufacturer, product;
};

/// Appends what the 128 bytes of a base block mean, field by field, each behind its bytes in brackets.
void appendDecodedEdid(std::string& report, const unsigned char* block, const EdidIdentity& identity);

/// The part that tells of one of the four descriptors of 18 bytes: a timing, or words of the monitor.
void appendEdidDescriptor(std::string& report, const unsigned char* descriptor);
