#include "ClassTable.h"

#include "CQPCopyOptDlg.h"
#include "CQPProjectChoice.h"
#include "CXBookMark.h"
#include "QPSelectDlg.h"
#include "QPUserActionLog.h"
#include "XQPSelectOrvoItem.h"
#include "XScriptActionAndCommandManager.h"

#include "ClassFactory.h"
#include "ComObject.h"
#include "Registrar.h"

#include "qptools.h"

namespace qptools
{
namespace
{
LPCWSTR NoDescription()
{
    return nullptr;
}

const CategoryEntry* NoCategories()
{
    return nullptr;
}

void NothingToInit(bool) {}

/// What the classes differ in: the implementing class, its identifier, its registry script among the
/// resources, and whether it may be aggregated. The scripts differ on purpose, too, and must not be made
/// alike: a class that refuses aggregation has no ThreadingModel; only 103, 106 and 107 have the key
/// Programmable; 108 writes its ProgID with another case in the values than in the keys, and 48ad of its
/// CLSID in lower case.
template <class Class, UINT Script, Aggregation Rule>
constexpr ObjectMapEntry Entry(const CLSID& classId)
{
    return {&classId,
            &UpdateClassRegistration<Script>,
            &ClassFactory::Create,
            &CreateComObject<Class, Rule>,
            nullptr,
            0,
            &NoDescription,
            &NoCategories,
            &NothingToInit};
}
} // namespace

ObjectMapEntry g_classTable[8] = {
    Entry<CQPProjectChoice, 102, Aggregation::Refused>(CLSID_QPProjectChoice),
    Entry<XQPSelectOrvoItem, 103, Aggregation::Allowed>(CLSID_QPSelectOrvoItem),
    Entry<QPSelectDlg, 105, Aggregation::Allowed>(CLSID_QPSelectDlg),
    Entry<QPUserActionLog, 106, Aggregation::Allowed>(CLSID_QPUserActionLog),
    Entry<XScriptActionAndCommandManager, 107, Aggregation::Allowed>(CLSID_XScriptActionAndCommandManager),
    Entry<CQPCopyOptDlg, 108, Aggregation::Allowed>(CLSID_QPCopyOptDlg),
    Entry<CXBookMark, 384, Aggregation::Refused>(CLSID_XBookMark),
    {},
};
} // namespace qptools
