#include "platform/text/TextAttributes.h"

#include <bit>

namespace platform {

namespace {

size_t slot(TextAttribute key)
{
    return size_t(std::countr_zero(quint8(key)));
}

} // namespace

TextAttributes::TextAttributes(std::initializer_list<std::pair<TextAttribute, QVariant>> values)
{
    auto table = std::make_shared<Values>();
    bool isEmpty = true;
    for (const auto &[key, value] : values) {
        (*table)[slot(key)] = value;
        isEmpty = isEmpty && !value.isValid();
    }
    if (!isEmpty)
        m_values = std::move(table);
}

QVariant TextAttributes::value(TextAttribute key) const
{
    return m_values ? (*m_values)[slot(key)] : QVariant();
}

bool TextAttributes::operator==(const TextAttributes &other) const
{
    if (m_values == other.m_values)
        return true;
    return m_values && other.m_values && *m_values == *other.m_values;
}

} // namespace platform
