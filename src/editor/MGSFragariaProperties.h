#pragma once

/// The settings that the editor view hands through, each as
///
///     X(type, name, Name, owner)
///     Y(type, name, Name, owner, the owner's getter, the owner's setter)
///     P(type, name, Name, owner)
///
/// the second where the owner has other names for it, the third where it is a property of the owner
/// without getter and setter. The view keeps none of these values. Widths
/// of the gutter are pixels, those of the text characters, delays seconds. Four extras are off at
/// first and not in the catalogue: showsTagPartners, showsColourSwatches, foldsLines,
/// marksChangedLines.
#define MGS_FRAGARIA_PROPERTIES(X, Y, P)                                                           \
    Y(QString, string, String, textView, string, reloadString)                                     \
    X(double, autoCompleteDelay, AutoCompleteDelay, textView)                                      \
    X(bool, autoCompleteEnabled, AutoCompleteEnabled, textView)                                    \
    X(bool, autoCompleteWithKeywords, AutoCompleteWithKeywords, textView)                          \
    X(QColor, currentLineHighlightColour, CurrentLineHighlightColour, textView)                    \
    X(bool, highlightsCurrentLine, HighlightsCurrentLine, textView)                                \
    X(int, tabWidth, TabWidth, textView)                                                           \
    X(uint, indentWidth, IndentWidth, textView)                                                    \
    X(bool, indentWithSpaces, IndentWithSpaces, textView)                                          \
    X(bool, useTabStops, UseTabStops, textView)                                                    \
    X(bool, indentBracesAutomatically, IndentBracesAutomatically, textView)                        \
    X(bool, indentNewLinesAutomatically, IndentNewLinesAutomatically, textView)                    \
    X(bool, insertClosingParenthesisAutomatically, InsertClosingParenthesisAutomatically,          \
      textView)                                                                                    \
    X(bool, insertClosingBraceAutomatically, InsertClosingBraceAutomatically, textView)            \
    X(bool, showsMatchingBraces, ShowsMatchingBraces, textView)                                    \
    X(int, pageGuideColumn, PageGuideColumn, textView)                                             \
    X(bool, showsPageGuide, ShowsPageGuide, textView)                                              \
    X(bool, lineWrap, LineWrap, textView)                                                          \
    X(bool, lineWrapsAtPageGuide, LineWrapsAtPageGuide, textView)                                  \
    X(bool, showsInvisibleCharacters, ShowsInvisibleCharacters, textView)                          \
    X(QColor, textInvisibleCharactersColour, TextInvisibleCharactersColour, textView)              \
    X(QColor, textColor, TextColor, textView)                                                      \
    X(QColor, backgroundColor, BackgroundColor, textView)                                          \
    X(QFont, textFont, TextFont, textView)                                                         \
    X(double, lineHeightMultiple, LineHeightMultiple, textView)                                    \
    X(QColor, insertionPointColor, InsertionPointColor, textView)                                  \
    X(bool, showsTagPartners, ShowsTagPartners, textView)                                          \
    X(bool, showsColourSwatches, ShowsColourSwatches, textView)                                    \
    X(bool, foldsLines, FoldsLines, textView)                                                      \
                                                                                                   \
    X(QString, syntaxDefinitionName, SyntaxDefinitionName, syntaxColouring)                        \
    X(bool, coloursMultiLineStrings, ColoursMultiLineStrings, syntaxColouring)                     \
    X(bool, coloursOnlyUntilEndOfLine, ColoursOnlyUntilEndOfLine, syntaxColouring)                 \
    P(QColor, colourForAttributes, ColourForAttributes, syntaxColouring)                           \
    P(QColor, colourForAutocomplete, ColourForAutocomplete, syntaxColouring)                       \
    P(QColor, colourForCommands, ColourForCommands, syntaxColouring)                               \
    P(QColor, colourForComments, ColourForComments, syntaxColouring)                               \
    P(QColor, colourForInstructions, ColourForInstructions, syntaxColouring)                       \
    P(QColor, colourForKeywords, ColourForKeywords, syntaxColouring)                               \
    P(QColor, colourForNumbers, ColourForNumbers, syntaxColouring)                                 \
    P(QColor, colourForStrings, ColourForStrings, syntaxColouring)                                 \
    P(QColor, colourForVariables, ColourForVariables, syntaxColouring)                             \
    P(bool, coloursAttributes, ColoursAttributes, syntaxColouring)                                 \
    P(bool, coloursAutocomplete, ColoursAutocomplete, syntaxColouring)                             \
    P(bool, coloursCommands, ColoursCommands, syntaxColouring)                                     \
    P(bool, coloursComments, ColoursComments, syntaxColouring)                                     \
    P(bool, coloursInstructions, ColoursInstructions, syntaxColouring)                             \
    P(bool, coloursKeywords, ColoursKeywords, syntaxColouring)                                     \
    P(bool, coloursNumbers, ColoursNumbers, syntaxColouring)                                       \
    P(bool, coloursStrings, ColoursStrings, syntaxColouring)                                       \
    P(bool, coloursVariables, ColoursVariables, syntaxColouring)                                   \
                                                                                                   \
    Y(double, minimumGutterWidth, MinimumGutterWidth, gutterView, minimumWidth, setMinimumWidth)   \
    X(bool, showsLineNumbers, ShowsLineNumbers, gutterView)                                        \
    X(int, startingLineNumber, StartingLineNumber, gutterView)                                     \
    Y(QFont, gutterFont, GutterFont, gutterView, font, setFont)                                    \
    Y(QColor, gutterTextColour, GutterTextColour, gutterView, textColor, setTextColor)             \
    Y(QColor, gutterBackgroundColour, GutterBackgroundColour, gutterView, backgroundColor,         \
      setBackgroundColor)                                                                          \
                                                                                                   \
    X(bool, marksChangedLines, MarksChangedLines, gutterView)                                      \
                                                                                                   \
    X(bool, showsSyntaxErrors, ShowsSyntaxErrors, syntaxErrorController)                           \
    X(bool, showsIndividualErrors, ShowsIndividualErrors, syntaxErrorController)                   \
    X(QColor, defaultSyntaxErrorHighlightingColour, DefaultSyntaxErrorHighlightingColour,          \
      syntaxErrorController)
