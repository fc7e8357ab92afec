// The bookmarks in the host's key store.
#pragma once

#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qpobjects.h"

#include <map>
#include <vector>

namespace qptools
{
/// Reads and deletes bookmarks; the navigator creates them. Nothing is kept between the calls but the host's
/// services, which all dialogs of the process share: each Initialize replaces them. A failure is written to
/// the log, and a service that is missing acts as a failed call.
///
/// The bookmarks of a project are two lists of the store, names and tree strings; entry n of one belongs to
/// entry n of the other. Lists that the store hands out stay its own.
class XBookmarkManager
{
public:
    XBookmarkManager() = delete;

    /// Names by tree strings. Of several bookmarks with the same tree string the last one is left.
    using Bookmarks = std::map<XQPComBSTR, XQPComVariant>;

    /// Gets the services from `manager`, which may be null. No failure stops it. Returns the status of the
    /// query for the key store.
    static HRESULT Initialize(IQPFObjectManager* manager);

    /// Releases the services. For the end of the module.
    static void Release() noexcept;

    /// Appends the identifiers of the projects that have bookmarks. Returns S_OK; `wereRead` tells whether
    /// the store could be read.
    static HRESULT GetBookmarkprojectId(std::vector<XQPComBSTR>& projects, bool& wereRead);

    /// Adds the bookmarks of a project. Returns S_OK. It looks for as many entries as the list of names has,
    /// wherever they stand, and gives up after a million numbers without one.
    static HRESULT GetBookmarks(const XQPComBSTR& project, Bookmarks& bookmarks);

    /// Deletes one bookmark, by writing both lists anew. Returns S_OK. If no bookmark has this tree string,
    /// the last one is lost; if the lists cannot be read, all are. Both on purpose.
    static HRESULT Deletebokmark(XQPComBSTR project, XQPComBSTR tree);

    /// Deletes all bookmarks of a project. Returns S_OK.
    static HRESULT DeleteAllBookmarks(XQPComBSTR project);
};
} // namespace qptools
