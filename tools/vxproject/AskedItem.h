#pragma once

#include "vxproject/Arguments.h"
#include "vxproject/Command.h"

namespace Tool {

/// An item that a command is about, in its project and at a view.
class AskedItem {
public:
    AskedItem(AskedItem const &) = delete;
    AskedItem & operator=(AskedItem const &) = delete;

    /// EXIT_FINDINGS if there was anything to say.
    ExitCode code() const { return code_; }
    QString const & path() const { return path_; }
    Kyn::View view() const { return view_; }
    vxproject::Project const & project() const { return *project_; }

    Kyn::Context contextAt(double frame) const;
    /// Says `what` of the item, as in "shot.vxp: lens 1 has no input clip".
    void complain(QString const & what);

protected:
    /// Says what is wrong with the file. `kind` is "lens" for --lens. UsageError before the file is opened.
    AskedItem(std::string const & file, char const * kind, long long id, int view);
    ~AskedItem() = default;

    quint32 id() const { return id_; }
    /// The item, or something that it needs, is not there; that has been said.
    void miss() { code_ = EXIT_FINDINGS; }

private:
    QString kind_;
    QString path_;
    quint32 id_;
    Kyn::View view_;
    std::unique_ptr<vxproject::Project> project_;
    ExitCode code_;
};

} // namespace Tool
