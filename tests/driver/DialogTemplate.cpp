#include "DialogTemplate.h"

#include <cstring>
#include <initializer_list>

namespace
{
void AppendText(std::vector<WORD>& words, const std::wstring& text)
{
    for (const wchar_t character : text)
        words.push_back(static_cast<WORD>(character));
    words.push_back(0);
}
} // namespace

void TemplateName::AppendTo(std::vector<WORD>& words) const
{
    if (m_number == 0)
        return AppendText(words, m_text);
    words.push_back(0xFFFF);
    words.push_back(static_cast<WORD>(m_number));
}

DialogTemplate::DialogTemplate(const wchar_t* title, DWORD style, short x, short y, short width, short height,
                               Form form, DWORD exStyle)
    : m_form(form)
{
    if (form == Form::Extended)
    {
        m_words = {1, 0xFFFF};
        Append(0); // help
    }
    AppendStyles(style, exStyle);
    m_countAt = m_words.size();
    m_words.push_back(0);
    for (const short measure : {x, y, width, height})
        m_words.push_back(static_cast<WORD>(measure));
    m_words.push_back(0); // menu
    m_words.push_back(0); // class
    AppendText(m_words, title);
    if ((style & DS_SETFONT) == 0)
        return;
    m_words.push_back(8);
    if (form == Form::Extended)
    {
        m_words.push_back(400);    // weight
        m_words.push_back(0x0100); // not italic, default characters
    }
    AppendText(m_words, L"MS Shell Dlg");
}

void DialogTemplate::Append(DWORD value)
{
    m_words.push_back(LOWORD(value));
    m_words.push_back(HIWORD(value));
}

void DialogTemplate::AppendStyles(DWORD style, DWORD exStyle)
{
    Append(m_form == Form::Extended ? exStyle : style);
    Append(m_form == Form::Extended ? style : exStyle);
}

DialogTemplate& DialogTemplate::Add(const TemplateName& className, int id, const TemplateName& text,
                                    DWORD style, short x, short y, short width, short height, DWORD exStyle,
                                    const std::vector<WORD>& data)
{
    AppendControl(className, id, text, style | WS_CHILD | WS_VISIBLE, {x, y, width, height}, exStyle, data);
    return *this;
}

DialogTemplate& DialogTemplate::AddHidden(const TemplateName& className, int id, const TemplateName& text,
                                          DWORD style, short x, short y, short width, short height)
{
    AppendControl(className, id, text, style | WS_CHILD, {x, y, width, height}, 0, {});
    return *this;
}

void DialogTemplate::AppendControl(const TemplateName& className, int id, const TemplateName& text,
                                   DWORD style, const Place& place, DWORD exStyle,
                                   const std::vector<WORD>& data)
{
    ++m_words[m_countAt];
    if (m_words.size() % 2)
        m_words.push_back(0);
    if (m_form == Form::Extended)
        Append(0); // help
    AppendStyles(style, exStyle);
    for (const short measure : {place.x, place.y, place.width, place.height})
        m_words.push_back(static_cast<WORD>(measure));
    m_words.push_back(static_cast<WORD>(id));
    if (m_form == Form::Extended)
        m_words.push_back(static_cast<WORD>(id < 0 ? 0xFFFF : 0));
    className.AppendTo(m_words);
    text.AppendTo(m_words);
    // The classic form counts the count itself, if there is anything.
    const std::size_t bytes = data.size() * 2;
    m_words.push_back(static_cast<WORD>(bytes && m_form == Form::Classic ? bytes + 2 : bytes));
    m_words.insert(m_words.end(), data.begin(), data.end());
}

LPCDLGTEMPLATEW DialogTemplate::Get()
{
    m_aligned.assign(m_words.size() / 2 + 1, 0);
    std::memcpy(m_aligned.data(), m_words.data(), m_words.size() * sizeof(WORD));
    return reinterpret_cast<LPCDLGTEMPLATEW>(m_aligned.data());
}
