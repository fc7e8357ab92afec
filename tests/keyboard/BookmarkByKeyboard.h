// The bookmark dialog over two projects, used by a real keyboard and a real mouse.
#pragma once

#include "BookmarkPlant.h"
#include "BookmarkSteps.h"
#include "BookmarkWords.h"
#include "KeyboardUser.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

class BookmarkByKeyboard : public ::testing::Test
{
protected:
    BookmarkByKeyboard()
    {
        EXPECT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK);
        host.Store().Set(4, L"common", L"expandbrowser", L"1");
    }

    void Show(const Steps& steps)
    {
        user.Does(steps);
        EXPECT_EQ(bookmarks->ShowDialog(&host.Manager()), S_OK);
    }

    /// The calls of the tree expander.
    std::string Expanded() const
    {
        std::string found;
        for (const std::string& call : host.calls)
            if (call.starts_with("expander."))
                found += call;
        return found;
    }

    /// The name of a bookmark of the first project in the store.
    std::string Name(int number)
    {
        const std::string start = "2 qpr-navigator/browserconfiguration1/gotoitemname/$7): gotoitemname" +
                                  std::to_string(number) + "=";
        for (const std::string& line : host.Store().Content())
            if (line.starts_with(start))
                return line.substr(start.size());
        return "";
    }

    /// Selects "Weld", the second row of the first project.
    static Steps GoesToWeld()
    {
        using namespace bookmark_dialog;
        return {Types("Tab", FocusOn(kList)), Types("End", RowSelected(1))};
    }

    /// Asks for a request of the mouse at points of the screen; the next step comes when `until` is seen.
    Steps Points(std::function<std::string(DialogView& view)> request, const Sight& until)
    {
        return {[this, request = std::move(request)](DialogView& view) {
                    mouse.emplace(view.Window(), request(view));
                },
                Sees({"the mouse has clicked",
                      [this](const DialogView&) {
                          return mouse->IsAnswered();
                      }}),
                Sees(until)};
    }

    static std::string At(HWND window, int x, int y)
    {
        POINT point{x, y};
        MapWindowPoints(window, nullptr, &point, 1);
        return std::to_string(point.x) + " " + std::to_string(point.y);
    }

    static std::string RowPoint(DialogView& view, int row)
    {
        RECT rect{};
        rect.left = LVIR_LABEL;
        SendMessageW(view.List(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
        return At(view.List(), rect.left + 8, (rect.top + rect.bottom) / 2);
    }

    Steps PointsAtRow(int row, const Sight& until)
    {
        return Points([row](DialogView& view) { return "click " + RowPoint(view, row); }, until);
    }

    /// Ends the dialog.
    DialogStep DoubleClicksRow(int row)
    {
        return [this, row](DialogView& view) {
            mouse.emplace(view.Window(), "double " + RowPoint(view, row));
        };
    }

    /// The next click is no double click.
    static DialogStep Waits(ULONGLONG milliseconds)
    {
        return Sees({"a while is over", [milliseconds, since = ULONGLONG()](const DialogView&) mutable {
                         since = since ? since : GetTickCount64();
                         return GetTickCount64() - since > milliseconds;
                     }});
    }

    Steps PointsAtHeading(int column, const Sight& until)
    {
        return Points(
            [column](DialogView& view) {
                const RECT rect = bookmark_dialog::HeadingRect(view, column);
                return "click " +
                       At(bookmark_dialog::HeaderOf(view), rect.left + 40, (rect.top + rect.bottom) / 2);
            },
            until);
    }

    /// Drags the right border of a heading to that width.
    Steps DragsHeading(int column, int width, const Sight& until)
    {
        return Points(
            [=](DialogView& view) {
                const HWND header = bookmark_dialog::HeaderOf(view);
                const RECT rect = bookmark_dialog::HeadingRect(view, column);
                const int y = (rect.top + rect.bottom) / 2;
                return "drag " + At(header, rect.right - 1, y) + " " + At(header, rect.left + width - 1, y);
            },
            until);
    }

    ModuleUnderTest module;
    MemoryHost host;
    const BookmarkPlant plant{host};
    ComPtr<IXBookMark> bookmarks;
    KeyboardUser user;
    std::optional<KeyRequest> mouse;
};
