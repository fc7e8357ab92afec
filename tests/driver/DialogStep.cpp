#include "DialogStep.h"

#include "KeyNames.h"

#include <gtest/gtest.h>

DialogStep::DialogStep(std::string words, Body body)
    : m_words(std::move(words)), m_body(std::move(body)), m_byMouse(true)
{
}

DialogStep::DialogStep(std::string keys, std::optional<Sight> until, bool ends)
    : m_words((ends ? "ends it by \"" : "types \"") + keys + "\""),
      m_body([keys](DialogView& view) { PressKeys(view, keys); }), m_keys(keys), m_seen(std::move(until)),
      m_ends(ends)
{
}

DialogStep::DialogStep(Sight sight)
    : m_words("sees that " + sight.words), m_body([sight](DialogView& view) {
          if (!sight.isSeen(view))
              ADD_FAILURE() << "it is not so that " << sight.words << " in\n" << view.Dump();
      }),
      m_seen(std::move(sight))
{
}

void DialogStep::Do(DialogView& view) const
{
    m_body(view);
}
