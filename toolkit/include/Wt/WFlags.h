#pragma once

namespace Wt {

/// A set of values of an enumeration whose values are single bits.
template <typename EnumType>
class WFlags {
public:
    constexpr WFlags() = default;
    constexpr WFlags(EnumType value) : mValue(static_cast<int>(value)) {}
    constexpr explicit WFlags(int value) : mValue(value) {}

    constexpr WFlags& operator&=(int mask) {
        mValue &= mask;
        return *this;
    }
    constexpr WFlags& operator&=(WFlags mask) {
        mValue &= mask.mValue;
        return *this;
    }
    constexpr WFlags& operator|=(WFlags other) {
        mValue |= other.mValue;
        return *this;
    }
    constexpr WFlags& operator|=(EnumType flag) {
        mValue |= static_cast<int>(flag);
        return *this;
    }
    constexpr WFlags& operator^=(WFlags other) {
        mValue ^= other.mValue;
        return *this;
    }

    constexpr operator int() const { return mValue; }
    constexpr bool testFlag(EnumType flag) const { return (mValue & static_cast<int>(flag)) != 0; }
    constexpr WFlags operator|(WFlags other) const { return WFlags(mValue | other.mValue); }
    constexpr WFlags operator|(EnumType flag) const { return WFlags(mValue | static_cast<int>(flag)); }
    constexpr WFlags operator^(WFlags other) const { return WFlags(mValue ^ other.mValue); }
    constexpr WFlags operator&(int mask) const { return WFlags(mValue & mask); }
    constexpr WFlags operator&(WFlags mask) const { return WFlags(mValue & mask.mValue); }
    constexpr WFlags operator&(EnumType flag) const { return WFlags(mValue & static_cast<int>(flag)); }
    constexpr WFlags operator~() const { return WFlags(~mValue); }
    constexpr bool operator!() const { return mValue == 0; }

    constexpr int value() const { return mValue; }

private:
    int mValue = 0;
};

} // namespace Wt

/// Makes `A | B` of two enumerators a WFlags of their enumeration. In namespace Wt.
#define W_DECLARE_OPERATORS_FOR_FLAGS(EnumType)                                                              \
    constexpr inline ::Wt::WFlags<EnumType> operator|(EnumType a, EnumType b) {                              \
        return ::Wt::WFlags<EnumType>(a) | ::Wt::WFlags<EnumType>(b);                                        \
    }                                                                                                        \
    constexpr inline ::Wt::WFlags<EnumType> operator|(EnumType a, ::Wt::WFlags<EnumType> b) {                \
        return ::Wt::WFlags<EnumType>(a) | b;                                                                \
    }
