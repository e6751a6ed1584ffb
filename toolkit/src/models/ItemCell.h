#pragma once

#include <boost/any.hpp>

#include <cstdint>
#include <cstring>
#include <string_view>

namespace Wt {

class WStandardItem;

namespace Impl {

/// A cell of a WStandardItemModel: nothing, a value, or an item. Lists are many and long, so a cell has 16
/// bytes: whole numbers and short texts lie in it, longer texts in a piece of memory of their own, what
/// models seldom hold in a boost::any. A value comes out with the type that it went in with.
class ItemCell {
public:
    ItemCell() = default;
    ~ItemCell() { clear(); }
    ItemCell(ItemCell&& other) noexcept;
    ItemCell& operator=(ItemCell&& other) noexcept;

    /// Takes the place of the value. Not owned.
    void setItem(WStandardItem* item);
    void setValue(const boost::any& value);
    void clear();

    bool empty() const { return mKind == Kind::Empty; }
    WStandardItem* item() const { return mKind == Kind::Item ? pointer<WStandardItem>() : nullptr; }
    boost::any value() const; ///< empty without one
    bool holds(const boost::any& value) const;

private:
    enum class Kind : std::uint8_t { Empty, Item, Int, Unsigned, ShortText, LongText, Any };
    static constexpr std::size_t kRoom = 14;

    template <typename T>
    T* pointer() const {
        T* held = nullptr;
        std::memcpy(&held, mRoom, sizeof held);
        return held;
    }
    template <typename T>
    void set(Kind kind, T raw);
    std::string_view text() const;

    alignas(8) char mRoom[kRoom] = {};
    std::uint8_t mLength = 0; ///< of a short text
    Kind mKind = Kind::Empty;
};

static_assert(sizeof(ItemCell) == 16);

} // namespace Impl
} // namespace Wt
