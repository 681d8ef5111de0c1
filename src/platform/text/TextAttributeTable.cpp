#include "platform/text/TextAttributeTable.h"

#include <bit>

namespace platform {

TextAttributeTable::TextAttributeTable() : m_sets(1), m_numbers({{Values{}, 0}}), m_values(1) {}

TextAttributeTable::Number TextAttributeTable::number(const TextAttributes &attributes)
{
    if (attributes.isEmpty())
        return 0;
    const auto known = m_known.find(attributes.identity());
    if (known != m_known.end())
        return known->second;
    Values values;
    for (size_t i = 0; i < values.size(); ++i)
        values[i] = valueNumber(attributes.value(allTextAttributes[i]));
    const Number set = numberOf(values);
    m_kept.push_back(attributes);
    return m_known[attributes.identity()] = set;
}

TextAttributeTable::Number TextAttributeTable::with(Number set, Number other)
{
    if (set == 0 || other == 0 || set == other)
        return set == 0 ? other : set;
    Values values = m_sets[set].values;
    for (size_t i = 0; i < values.size(); ++i) {
        if (const quint32 value = m_sets[other].values[i])
            values[i] = value;
    }
    return numberOf(values);
}

TextAttributeTable::Number TextAttributeTable::without(Number set, TextAttributeKeys keys)
{
    if (set == 0)
        return 0;
    Values values = m_sets[set].values;
    bool hasLess = false;
    for (size_t i = 0; i < values.size(); ++i) {
        if (keys & allTextAttributes[i])
            hasLess = std::exchange(values[i], 0) != 0 || hasLess;
    }
    return hasLess ? numberOf(values) : set;
}

bool TextAttributeTable::isEqual(Number a, Number b, TextAttribute key) const
{
    if (a == b)
        return true;
    const size_t index = size_t(std::countr_zero(quint8(key)));
    return m_sets[a].values[index] == m_sets[b].values[index];
}

TextAttributeTable::Number TextAttributeTable::numberOf(const Values &values)
{
    const auto [at, isNew] = m_numbers.try_emplace(values, Number(m_sets.size()));
    if (isNew) {
        const auto value = [&](size_t i) {
            return std::pair(allTextAttributes[i], m_values[values[i]]);
        };
        m_sets.push_back({values, {value(0), value(1), value(2), value(3), value(4)}});
    }
    return at->second;
}

quint32 TextAttributeTable::valueNumber(const QVariant &value)
{
    if (!value.isValid())
        return 0;
    quint32 &number = m_valueNumbers[{value.typeId(), value.toString()}];
    if (number == 0) {
        number = quint32(m_values.size());
        m_values.push_back(value);
    }
    return number;
}

} // namespace platform
