#pragma once

#include "platform/text/TextAttributes.h"
#include <functional>
#include <QHash>
#include <unordered_map>
#include <vector>

namespace platform {

/// Numbers for sets of attributes, so that runs hold four bytes and compare as integers. Equal sets
/// have equal numbers; 0 is the empty set. Owned by one TemporaryAttributes.
class TextAttributeTable
{
public:
    using Number = quint32;

    TextAttributeTable();

    Number number(const TextAttributes &attributes);
    /// Valid until the next number is made.
    const TextAttributes &attributes(Number set) const { return m_sets[set].attributes; }

    /// The set with the values of `other` in place of its own.
    Number with(Number set, Number other);
    Number without(Number set, TextAttributeKeys keys);

    bool isEqual(Number a, Number b, TextAttribute key) const;

    /// What the table has taken in since it was made; what is out of use stays in it.
    size_t size() const { return m_sets.size() + m_kept.size(); }

private:
    using Values = std::array<quint32, textAttributeCount>; ///< Numbers of values; 0: none.
    struct Set
    {
        Values values;
        TextAttributes attributes;
    };
    struct Hash
    {
        size_t operator()(const Values &values) const
        {
            return qHashRange(values.begin(), values.end());
        }
    };

    Number numberOf(const Values &values);
    quint32 valueNumber(const QVariant &value);

    std::vector<Set> m_sets;
    std::unordered_map<Values, Number, Hash> m_numbers;
    std::unordered_map<const void *, Number> m_known; ///< By identity, of sets that m_kept keeps.
    std::vector<TextAttributes> m_kept;
    std::vector<QVariant> m_values;
    QHash<std::pair<int, QString>, quint32> m_valueNumbers; ///< By type and text.
};

} // namespace platform
