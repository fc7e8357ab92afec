// Writes dialog templates in memory, as the resource compiler lays them out.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// A class, a title or a menu: a text or a number.
class TemplateName
{
public:
    TemplateName(const wchar_t* text) : m_text(text) {} // NOLINT: either is what a caller has
    TemplateName(int number) : m_number(number) {}      // NOLINT
    void AppendTo(std::vector<WORD>& words) const;

private:
    std::wstring m_text;
    int m_number = 0; ///< 0: the text counts
};

/// Measures are in dialog units.
class DialogTemplate
{
public:
    enum class Form
    {
        Classic,
        Extended ///< what DIALOGEX makes
    };

    /// The font is 8 point "MS Shell Dlg" where the style has DS_SETFONT.
    DialogTemplate(const wchar_t* title, DWORD style, short x, short y, short width, short height,
                   Form form = Form::Classic, DWORD exStyle = 0);

    /// Adds a control; WS_CHILD and WS_VISIBLE are added to its style. The data are handed to WM_CREATE.
    DialogTemplate& Add(const TemplateName& className, int id, const TemplateName& text, DWORD style, short x,
                        short y, short width, short height, DWORD exStyle = 0,
                        const std::vector<WORD>& data = {});

    /// Adds a control that is not shown.
    DialogTemplate& AddHidden(const TemplateName& className, int id, const TemplateName& text, DWORD style,
                              short x, short y, short width, short height);

    /// Aligned as a resource; valid while the object lives and is not added to.
    LPCDLGTEMPLATEW Get();

private:
    struct Place
    {
        short x, y, width, height;
    };
    void Append(DWORD value);
    void AppendStyles(DWORD style, DWORD exStyle);
    void AppendControl(const TemplateName& className, int id, const TemplateName& text, DWORD style,
                       const Place& place, DWORD exStyle, const std::vector<WORD>& data);

    Form m_form;
    std::vector<WORD> m_words;
    std::vector<DWORD> m_aligned;
    std::size_t m_countAt = 0;
};
