#include "BookmarkDemo.h"

#include "CopiedObjects.h"
#include "Created.h"
#include "DialogUse.h"
#include "Table.h"

#include "BoxAnswers.h"
#include "DialogDriver.h"
#include "RegisteredProgId.h"

#include "NavigatorView.h"
#include "TreeExpander.h"

#include <utility>

namespace
{
constexpr int kDelete = 380;
constexpr int kDeleteAll = 381;
constexpr int kProject = 382;
constexpr int kOpen = 384;

constexpr wchar_t kPlant[] = L"Body Plant North";
constexpr wchar_t kMachining[] = L"Engine Machining South";
constexpr wchar_t kTrialPlant[] = L"Trial plant";
constexpr wchar_t kTrialCell[] = L"Trial cell";
constexpr wchar_t kTestBench[] = L"Test bench";

constexpr int kMoreWidth = 160;
constexpr int kMoreHeight = 90;

DialogStep TypesName(const std::wstring& name)
{
    return {"types a name", [name](DialogView& view) {
                view.Type(view.LabelEditor(view.List()), name);
            }};
}
} // namespace

CBookmarkDemo::CBookmarkDemo(refhost::Plant& plant, CPictures& pictures, CTable& hostCalls,
                             Expectation expect)
    : CDialogDemo(plant, pictures, std::move(expect)), m_hostCalls(hostCalls)
{
}

void CBookmarkDemo::Run()
{
    const RegisteredProgId view(refhost::kNavigatorViewProgId, refhost::kNavigatorViewClass);
    const RegisteredProgId expander(refhost::kTreeExpanderProgId, refhost::kTreeExpanderClass);
    const std::vector<std::string> before = m_plant.StoreContent();
    const long long objects = ObjectCount(m_plant);
    MakeBookmarks();
    ListAndSort();
    Rename();
    Open();
    Delete();
    DeleteAll();
    FindNone();
    m_expect(ObjectCount(m_plant) == objects, L"the plant has as many objects as before");
    m_expect(m_plant.StoreContent() == before, L"the key store is as it was before");
}

void CBookmarkDemo::MakeBookmarks()
{
    PrintLine(L"\nThe user makes bookmarks in the navigator");
    m_plant.Add(L"project", kTrialPlant);
    m_plant.Add(L"plannode", kTrialCell);
    AddBookmark(kPlant, L"plannode", L"Door line", L"Doors");
    AddBookmark(kPlant, L"plannode", L"Sealing cell", L"Bottleneck");
    AddBookmark(kPlant, L"plannode", L"Hinge robot", L"Robot");
    AddBookmark(kPlant, L"plannode", L"Torque gauge", L"Check on Monday");
    AddBookmark(kPlant, L"plannode", kTrialCell, L"Trial");
    AddBookmark(kMachining, L"orvoitem", L"Crankshaft", L"Shaft");
    AddBookmark(kMachining, L"orvoitem", L"Cylinder block", L"Block");
    AddBookmark(kTrialPlant, L"orvoitem", L"Roof", L"Roof");
    PrintStore({L"Body Plant North: 0=Doors at Door line, 1=Bottleneck at Sealing cell, "
                L"2=Robot at Hinge robot, 3=Check on Monday at Torque gauge, 4=Trial at Trial cell",
                L"Engine Machining South: 0=Shaft at Crankshaft, 1=Block at Cylinder block",
                L"Trial plant: 0=Roof at Roof"});
}

void CBookmarkDemo::ListAndSort()
{
    PrintLine(L"\nThe bookmarks, after a project and an object were deleted; the navigator shows " +
              std::wstring(kMachining));
    m_plant.Remove(L"project", kTrialPlant);
    m_plant.Remove(L"plannode", kTrialCell);
    m_plant.ShowProject(kMachining, true);
    Show(ShowsBothProjects() + SortsByBothHeadings() + MakesTheDialogLarger() +
         Steps{PressesSaying(IDCANCEL)});
    m_plant.ShowProject(kMachining, false);
    PrintStore({L"Body Plant North: 0=Doors at Door line, 1=Bottleneck at Sealing cell, "
                L"2=Robot at Hinge robot, 3=Check on Monday at Torque gauge",
                L"Engine Machining South: 0=Shaft at Crankshaft, 1=Block at Cylinder block"});
}

void CBookmarkDemo::Rename()
{
    PrintLine(L"\nBookmarks get other names");
    Show(Steps{Prints({L"Bottleneck", L"Check on Monday", L"Doors", L"Robot"})} +
         Renames(L"Robot", L"Hinge robot, left") + Renames(L"Doors", L"  ") +
         Renames(L"Check on Monday", L"Never", "Escape") + Renames(L"Bottleneck", L"  Sealing: slow ") +
         Steps{Prints({L"Check on Monday", L"Doors", L"Hinge robot, left", L"Sealing: slow"}),
               PressesSaying(IDCANCEL)});
    PrintStore({L"Body Plant North: 0=Doors at Door line, 1=Sealing: slow at Sealing cell, "
                L"2=Hinge robot, left at Hinge robot, 3=Check on Monday at Torque gauge",
                L"Engine Machining South: 0=Shaft at Crankshaft, 1=Block at Cylinder block"});
}

void CBookmarkDemo::Open()
{
    PrintLine(L"\nA bookmark is opened");
    m_plant.Add(L"plannode", kTestBench);
    AddBookmark(kPlant, L"plannode", kTestBench, L"Bench");
    BoxAnswers boxes;
    ReadMessage(boxes, "bookmarks-no-object");
    const std::size_t before = m_plant.Expanded().size();
    Show(FindsNoObject(L"Bench") + Steps{SelectsSaying(L"Hinge robot, left"), PressesSaying(kOpen)});
    const std::vector<refhost::ExpandedTree>& expanded = m_plant.Expanded();
    m_expect(expanded.size() == before + 1, L"the tree expander is called once");
    if (expanded.empty())
        return;
    const std::wstring place = WithNames(expanded.back().tree, m_names);
    PrintLine(L"  the tree expander shows " + place + L" in " + WithNames(expanded.back().project, m_names));
    m_expect(place == L"BrowserTree:<Hinge robot>;<Body Plant North>;",
             L"the object of the bookmark is shown in the navigator");
    PrintStore({L"Body Plant North: 0=Doors at Door line, 1=Sealing: slow at Sealing cell, "
                L"2=Hinge robot, left at Hinge robot, 3=Check on Monday at Torque gauge, "
                L"4=Bench at Test bench",
                L"Engine Machining South: 0=Shaft at Crankshaft, 1=Block at Cylinder block"});
}

void CBookmarkDemo::Delete()
{
    PrintLine(L"\nBookmarks are deleted");
    BoxAnswers boxes;
    AnswerQuestion(boxes, "bookmarks-delete-one", IDNO);
    AnswerQuestion(boxes, nullptr, IDYES);
    AnswerQuestion(boxes, "bookmarks-delete-several", IDYES);
    Show(DeletesOne() + DeletesTwo() + Steps{PressesSaying(IDCANCEL)});
    PrintStore({L"Body Plant North: 0=Sealing: slow at Sealing cell",
                L"Engine Machining South: 0=Shaft at Crankshaft, 1=Block at Cylinder block"});
}

void CBookmarkDemo::DeleteAll()
{
    PrintLine(L"\nAll bookmarks of a project are deleted, and the last one of another");
    BoxAnswers boxes;
    AnswerQuestion(boxes, "bookmarks-delete-all", IDYES);
    AnswerQuestion(boxes, nullptr, IDYES);
    Show({[](DialogView& view) {
              Says(L"the project \"" + std::wstring(kMachining) + L"\" is chosen");
              view.Choose(kProject, kMachining);
          },
          PressesSaying(kDeleteAll), Prints({L"Sealing: slow"}), SelectsSaying(L"Sealing: slow"),
          PressesSaying(kDelete), Prints({}), PressesSaying(IDCANCEL)});
    PrintStore({L"Body Plant North: "});
}

void CBookmarkDemo::FindNone()
{
    PrintLine(L"\nA project that was left without bookmarks is listed until Delete All removes it");
    {
        BoxAnswers boxes;
        AnswerQuestion(boxes, nullptr, IDYES);
        Show({Prints({}), PressesSaying(kDeleteAll), PressesSaying(IDCANCEL)});
    }
    PrintStore({});
    PrintLine(L"\nNo project has bookmarks");
    BoxAnswers boxes;
    ReadMessage(boxes, "bookmarks-no-project");
    Show();
}

// The user.

Steps CBookmarkDemo::ShowsBothProjects()
{
    return {Prints({L"Block", L"Shaft"}), [this](DialogView& view) { ChooseAndCount(view, kPlant); },
            Prints({L"Bottleneck", L"Check on Monday", L"Doors", L"Robot"}), SelectsSaying(L"Doors"),
            [this](DialogView&) {
                Picture("bookmarks");
            }};
}

Steps CBookmarkDemo::SortsByBothHeadings()
{
    return {ClicksHeading(0),
            [this](DialogView&) { Picture("bookmarks-by-name"); },
            Prints({L"Robot", L"Doors", L"Check on Monday", L"Bottleneck"}),
            ClicksHeading(1),
            [this](DialogView&) { Picture("bookmarks-by-component"); },
            Prints({L"Doors", L"Robot", L"Bottleneck", L"Check on Monday"})};
}

Steps CBookmarkDemo::MakesTheDialogLarger()
{
    return {[this](DialogView& view) {
                Says(L"the dialog is made larger");
                RECT before{};
                GetClientRect(view.List(), &before);
                RECT window{};
                GetWindowRect(view.Window(), &window);
                SetWindowPos(view.Window(), nullptr, 0, 0, window.right - window.left + kMoreWidth,
                             window.bottom - window.top + kMoreHeight,
                             SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
                RECT after{};
                GetClientRect(view.List(), &after);
                m_expect(after.right > before.right && after.bottom > before.bottom,
                         L"the list grows with the dialog");
            },
            [this](DialogView&) {
                Picture("bookmarks-larger");
            }};
}

Steps CBookmarkDemo::Renames(const wchar_t* bookmark, const wchar_t* typed, const char* key)
{
    const std::wstring name = typed;
    return {SelectsSaying(bookmark),
            Saying(L"F2 is pressed, \"" + name + L"\" typed, and " +
                   (key == std::string("Escape") ? L"Escape" : L"Enter") + L" pressed"),
            Types("F2"), TypesName(name), Types(key)};
}

Steps CBookmarkDemo::FindsNoObject(const wchar_t* bookmark)
{
    return {Prints({L"Bench", L"Check on Monday", L"Doors", L"Hinge robot, left", L"Sealing: slow"}),
            [this](DialogView&) {
                Says(L"meanwhile the object \"" + std::wstring(kTestBench) + L"\" is deleted");
                m_plant.Remove(L"plannode", kTestBench);
            },
            SelectsSaying(bookmark), PressesSaying(kOpen)};
}

Steps CBookmarkDemo::DeletesOne()
{
    const std::vector<std::wstring> all = {L"Check on Monday", L"Doors", L"Hinge robot, left",
                                           L"Sealing: slow"};
    return {Prints(all),
            SelectsSaying(L"Check on Monday"),
            PressesSaying(kDelete),
            Prints(all),
            PressesSaying(kDelete),
            Prints({L"Doors", L"Hinge robot, left", L"Sealing: slow"})};
}

Steps CBookmarkDemo::DeletesTwo()
{
    return {SelectsSaying(L"Doors"), Saying(L"the next one is selected as well, by Shift+Down"),
            Types("shift+Down"),     Saying(L"the Delete key is pressed"),
            Types("Delete"),         Prints({L"Sealing: slow"})};
}

DialogStep CBookmarkDemo::Prints(std::vector<std::wstring> bookmarks)
{
    return DialogStep([this, bookmarks = std::move(bookmarks)](DialogView& view) {
        const std::wstring project = view.Text(kProject);
        PrintLine(L"  " + view.Title() + (project.empty() ? L"" : L": " + project));
        const HWND list = view.List();
        std::vector<std::wstring> headings;
        for (const ShownColumn& column : view.Columns(list))
            headings.push_back(column.caption);
        CTable table(std::move(headings));
        for (int row = 0; row < view.Rows(list); ++row)
            table.AddRow(view.Row(list, row));
        table.Print();
        std::wstring expected;
        for (const std::wstring& bookmark : bookmarks)
            expected += L" \"" + bookmark + L"\"";
        m_expect(view.Column(list, 0) == bookmarks, L"the bookmarks are listed in this order:" + expected);
    });
}

// The host.

void CBookmarkDemo::AddBookmark(const wchar_t* project, const wchar_t* table, const wchar_t* object,
                                const wchar_t* name)
{
    const ComPtr<IQP_BaseDataObject> place = Find(table, object);
    const ComPtr<IQP_BaseDataObject> owner = Find(L"project", project);
    if (!place || !owner)
        return;
    m_names[m_plant.IdOf(place)] = object;
    m_names[m_plant.IdOf(owner)] = project;
    m_plant.AddBookmark(project, place, name);
}

void CBookmarkDemo::Show(Steps steps)
{
    DialogDriver user;
    user.OnDialog(std::move(steps));
    Show();
}

void CBookmarkDemo::Show()
{
    const auto bookmarks = CreateByProgId<IXBookMark>(L"Qptools.XBookMark");
    m_expect(static_cast<bool>(bookmarks), L"the bookmarks are created by ProgID");
    if (bookmarks)
        m_expect(bookmarks->ShowDialog(m_plant.ObjectManager().get()) == S_OK, L"the bookmarks are shown");
}

void CBookmarkDemo::ChooseAndCount(const DialogView& view, const wchar_t* project)
{
    constexpr long long kExpected = 28;
    Says(L"the project \"" + std::wstring(project) + L"\" is chosen");
    m_plant.Calls().Clear();
    view.Choose(kProject, project);
    const long long count = m_plant.Calls().Count();
    m_hostCalls.AddRow({L"Bookmarks: a project is listed, and one whose object is gone deleted",
                        std::to_wstring(view.Rows(view.List())), std::to_wstring(count)});
    m_expect(count == kExpected, L"the list of a project: " + std::to_wstring(kExpected) + L" host calls");
}

void CBookmarkDemo::AnswerQuestion(BoxAnswers& boxes, const char* picture, int answer)
{
    boxes.ExpectAny(answer, [this, &boxes, picture, answer] {
        if (picture)
            Picture(picture);
        const ShownBox& box = boxes.Shown().back();
        PrintLine(L"    question \"" + box.title + L"\": " + Indented(box.text));
        Says(answer == IDYES ? L"the answer is Yes" : L"the answer is No");
    });
}

void CBookmarkDemo::PrintStore(const std::vector<std::wstring>& expected)
{
    const std::map<std::wstring, StoredBookmarks> projects = ReadBookmarks(m_plant, m_names);
    PrintBookmarks(projects);
    std::vector<std::wstring> found;
    found.reserve(projects.size());
    for (const auto& [project, bookmarks] : projects)
        found.push_back(project + L": " + InOneLine(bookmarks));
    m_expect(found == expected,
             L"the key store has these bookmarks: " + (expected.empty() ? L"none" : expected.front()));
}
