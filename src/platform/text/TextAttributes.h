#pragma once

#include <array>
#include <initializer_list>
#include <memory>
#include <QFlags>
#include <QVariant>

namespace platform {

/// What text can have on top of itself. A further one is a line here.
enum class TextAttribute : quint8 {
    ForegroundColor = 1, ///< QColor
    BackgroundColor = 2, ///< QColor
    UnderlineStyle = 4,  ///< int
    ToolTip = 8,         ///< QString, plain text
    Group = 16,          ///< QString: what the text is, e.g. the name of a colouring group
};
Q_DECLARE_FLAGS(TextAttributeKeys, TextAttribute)
Q_DECLARE_OPERATORS_FOR_FLAGS(TextAttributeKeys)

/// An underline of errors has its four low bits set; heirs of the layout manager draw it.
inline constexpr int errorUnderline = 0b1111;
constexpr bool isErrorUnderline(int underlineStyle)
{
    return (underlineStyle & errorUnderline) == errorUnderline;
}

inline constexpr size_t textAttributeCount = 5;
inline constexpr std::array<TextAttribute, textAttributeCount> allTextAttributes = {
    TextAttribute::ForegroundColor, TextAttribute::BackgroundColor, TextAttribute::UnderlineStyle,
    TextAttribute::ToolTip, TextAttribute::Group};

/// A few attributes and their values: a small immutable value, shared when it is copied. Values are
/// strings, colours, numbers or booleans, and differ if their types or their texts do. An invalid
/// QVariant is an attribute that is not there. Make a set that is used often once and keep it:
/// copies of one set are recognised without a look inside.
class TextAttributes
{
public:
    TextAttributes() = default;
    TextAttributes(std::initializer_list<std::pair<TextAttribute, QVariant>> values);

    bool isEmpty() const { return !m_values; }
    QVariant value(TextAttribute key) const;

    bool operator==(const TextAttributes &other) const;

    /// Equal for copies of one set.
    const void *identity() const { return m_values.get(); }

private:
    using Values = std::array<QVariant, textAttributeCount>;
    std::shared_ptr<const Values> m_values; ///< Null: empty.
};

} // namespace platform
