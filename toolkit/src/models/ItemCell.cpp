#include "models/ItemCell.h"

#include "models/Any.h"

#include <string>
#include <utility>

namespace Wt::Impl {

namespace {

/// A long text is its length and its bytes, in one piece.
using LongLength = std::uint32_t;
constexpr std::size_t kLongest = 0x7fffffff;

} // namespace

template <typename T>
void ItemCell::set(Kind kind, T raw) {
    static_assert(sizeof raw <= kRoom);
    std::memcpy(mRoom, &raw, sizeof raw);
    mKind = kind;
}

ItemCell::ItemCell(ItemCell&& other) noexcept {
    *this = std::move(other);
}

ItemCell& ItemCell::operator=(ItemCell&& other) noexcept {
    if (this == &other) return *this;
    clear();
    std::memcpy(mRoom, other.mRoom, kRoom);
    mLength = other.mLength;
    mKind = std::exchange(other.mKind, Kind::Empty);
    return *this;
}

void ItemCell::clear() {
    if (mKind == Kind::LongText) delete[] pointer<char>();
    if (mKind == Kind::Any) delete pointer<boost::any>();
    mKind = Kind::Empty;
}

void ItemCell::setItem(WStandardItem* item) {
    clear();
    if (item) set(Kind::Item, item);
}

void ItemCell::setValue(const boost::any& value) {
    clear();
    if (value.empty()) return;
    if (const auto* number = boost::any_cast<int>(&value)) return set(Kind::Int, *number);
    if (const auto* number = boost::any_cast<unsigned>(&value)) return set(Kind::Unsigned, *number);
    const auto* text = boost::any_cast<std::string>(&value);
    if (!text || text->size() > kLongest) return set(Kind::Any, new boost::any(value));
    if (text->size() <= kRoom) {
        std::memcpy(mRoom, text->data(), text->size());
        mLength = static_cast<std::uint8_t>(text->size());
        mKind = Kind::ShortText;
        return;
    }
    const auto length = static_cast<LongLength>(text->size());
    char* piece = new char[sizeof length + length];
    std::memcpy(piece, &length, sizeof length);
    std::memcpy(piece + sizeof length, text->data(), length);
    set(Kind::LongText, piece);
}

std::string_view ItemCell::text() const {
    if (mKind == Kind::ShortText) return {mRoom, mLength};
    const char* piece = pointer<char>();
    LongLength length = 0;
    std::memcpy(&length, piece, sizeof length);
    return {piece + sizeof length, length};
}

boost::any ItemCell::value() const {
    switch (mKind) {
    case Kind::Empty:
    case Kind::Item:
        break;
    case Kind::Int:
    case Kind::Unsigned: {
        unsigned number = 0;
        std::memcpy(&number, mRoom, sizeof number);
        return mKind == Kind::Unsigned ? boost::any(number) : boost::any(static_cast<int>(number));
    }
    case Kind::ShortText:
    case Kind::LongText:
        return boost::any(std::string(text()));
    case Kind::Any:
        return *pointer<boost::any>();
    }
    return {};
}

bool ItemCell::holds(const boost::any& value) const {
    switch (mKind) {
    case Kind::Empty:
    case Kind::Item:
        return value.empty();
    case Kind::Int:
    case Kind::Unsigned:
        return sameValue(this->value(), value);
    case Kind::ShortText:
    case Kind::LongText: {
        const auto* other = boost::any_cast<std::string>(&value);
        return other && text() == *other;
    }
    case Kind::Any:
        return sameValue(*pointer<boost::any>(), value);
    }
    return false;
}

} // namespace Wt::Impl
