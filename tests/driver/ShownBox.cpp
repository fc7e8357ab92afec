#include "ShownBox.h"

#include "WindowTexts.h"

std::string Describe(const ShownBox& box)
{
    return "the box \"" + Utf8Text(box.title) + "\" with the text \"" + Utf8Text(box.text) + "\"";
}
