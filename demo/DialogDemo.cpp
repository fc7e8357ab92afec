#include "DialogDemo.h"

#include "DialogUse.h"
#include "Table.h"

#include "BoxAnswers.h"

#include <utility>

CDialogDemo::CDialogDemo(refhost::Plant& plant, CPictures& pictures, Expectation expect)
    : m_plant(plant), m_pictures(pictures), m_expect(std::move(expect))
{
}

void CDialogDemo::Picture(const char* name) const
{
    m_expect(m_pictures.Take(name), L"a picture is taken of the dialog");
}

void CDialogDemo::ReadMessage(BoxAnswers& boxes, const char* picture) const
{
    boxes.ExpectAny(IDOK, [this, &boxes, picture] {
        Picture(picture);
        const ShownBox& box = boxes.Shown().back();
        PrintLine(L"    message \"" + box.title + L"\": " + Indented(box.text));
    });
}

ComPtr<IQP_BaseDataObject> CDialogDemo::Find(const wchar_t* table, const wchar_t* name) const
{
    ComPtr<IQP_BaseDataObject> object = m_plant.Find(table, name);
    m_expect(static_cast<bool>(object), std::wstring(L"the plant has the ") + table + L" \"" + name + L"\"");
    return object;
}
