// The enhanced copy dialog in another language: its own texts are listed whole, and those of a host that are
// hard to show.
#pragma once

#include "CopyFixture.h"

/// Texts of a host that are hard to show.
inline const std::wstring kLongText = std::wstring(300, L'M') + L" ende";
inline const std::wstring kRightToLeft =
    L"\u05D1\u05D3\u05D9\u05E7\u05D4 \u0645\u062B\u0642\u0628 (2) \u202E!";
inline const std::wstring kChinese = L"\u5207\u524A\u30C9\u30EA\u30EB\uAC00\uACF5";

class LanguageFixture : public CopyFixture
{
protected:
    /// The texts of all controls that have one, in the order of the template; only those that are `shown`, or
    /// all.
    static DialogStep SeesTexts(const Texts& expected)
    {
        return {"sees the texts", [=](DialogView& view) {
                    Texts texts;
                    for (const HWND control : view.Controls())
                        if (control != view.Control(copy_dialog::kPlanType) && !view.Text(control).empty())
                            texts.push_back(view.Text(control));
                    EXPECT_EQ(texts, expected);
                }};
    }

    /// A text as the copies get it.
    static std::string Sent(const std::wstring& text)
    {
        return "BSTR '" + Utf8Of(XQPComBSTR(text.c_str())) + "'";
    }
};
