#pragma once

#include <QObject>

class MGSFragariaView;

/// What the code editor of the window is shown with: the program's own settings, with colours that
/// follow light and dark, and over them whatever the user has set in the preferences, which is kept
/// in the user defaults. Owned by the view; main thread.
class LSMEditorSettings : public QObject
{
    Q_OBJECT

public:
    explicit LSMEditorSettings(MGSFragariaView *view);

private:
    void configureView();
    void shareSettings();
    void applyEditorColours();
    void applyGutterColours();

    MGSFragariaView *const m_view;
};
