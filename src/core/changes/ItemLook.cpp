#include "ItemLook.h"

namespace ravlin {
namespace {

template <class T> bool differ(const std::optional<T>& a, const std::optional<T>& b)
{
    return a && b && *a != *b;
}

} // namespace

bool ItemLook::changedIn(const ItemLook& later) const
{
    return differ(picture, later.picture) || differ(size, later.size) ||
           differ(title, later.title) || differ(description, later.description) ||
           differ(value, later.value);
}

bool ItemLook::isEmpty() const
{
    return !picture && !size && !title && !description && !value;
}

} // namespace ravlin
