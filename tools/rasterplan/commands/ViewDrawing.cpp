#include "commands/ViewDrawing.h"

#include "base/Failure.h"
#include "base/Files.h"
#include "base/Notices.h"
#include "base/PathText.h"
#include "base/Progress.h"
#include "base/VisibleText.h"
#include "drawing/PendingFile.h"
#include "view/DrawingScene.h"
#include "view/Page.h"
#include "view/PictureSource.h"

#include <cerrno>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace rasterplan_tool {
namespace {

fs::path pageOf(const ViewDrawing& command) {
    return command.page.empty() ? fs::path(command.drawing).replace_extension(".html") : command.page;
}

// Finds the pictures of a drawing for a page and warns of those that it cannot show.
class PictureSources {
public:
    PictureSources(const ViewDrawing& command, const fs::path& page, std::size_t count, Progress& progress,
                   Notices& notices)
        : m_drawingFolder(fs::weakly_canonical(fs::absolute(command.drawing).parent_path()))
        , m_page(page)
        , m_embed(command.embed)
        , m_count(count)
        , m_progress(progress)
        , m_notices(notices) {}

    // A missing picture keeps its name, so that the page shows it once it is there.
    std::string operator()(const ScenePicture& picture) {
        m_progress.tell(m_done++, m_count);
        const std::optional<fs::path> file = findPicture(picture.path, m_drawingFolder);
        if (!file) {
            warn(picture, "no such picture is there or beside the drawing, so the page shows a hatched frame "
                          "instead; put it beside the drawing and run the command again");
            const fs::path place = (m_drawingFolder / pathFromUtf8(picture.path)).lexically_normal();
            return linkTo(place, m_page.parent_path());
        }
        if (isSameFile(*file, m_page)) {
            throw BadInput(quoted(m_page) +
                           ": this is a picture of the drawing, which the page would replace; "
                           "name another page");
        }
        const std::string_view type = mediaType(*file);
        if (type.empty()) {
            warn(picture, "browsers do not show this kind of picture, so the page shows a hatched frame "
                          "instead; save it as PNG or JPEG and write the drawing with that");
        }
        return m_embed && !type.empty() ? embedded(*file, type) : linkTo(*file, m_page.parent_path());
    }

private:
    void warn(const ScenePicture& picture, const std::string& text) {
        m_notices.warn({{}, '"' + visible(picture.path) + '"'}, text, text);
    }

    fs::path m_drawingFolder;
    fs::path m_page;
    bool m_embed;
    std::size_t m_count;
    std::size_t m_done = 0;
    Progress& m_progress;
    Notices& m_notices;
};

} // namespace

void execute(const ViewDrawing& command, Console& console, const MemoryWatch& memory) {
    if (!canWritePages()) {
        throw ExportFailed("this rasterplan was built without three.js, which pages need; build it where the "
                           "Debian package libjs-three is installed");
    }
    const DrawingScene scene = readScene(command.drawing);
    PendingFile pending(pageOf(command), {"page", "site.html"});
    if (isSameFile(command.drawing, pending.destination())) {
        throw BadInput(quoted(pending.destination()) +
                       ": this is the drawing itself, which the page would replace; name another page");
    }
    errno = 0;
    std::ofstream page(pending.temporary(), std::ios::binary);
    if (!page.is_open())
        throwIfExhausted(errno);
    Notices notices;
    Progress progress(console.err, "reading pictures");
    writePage(page, shownText(command.drawing.filename()), scene,
              PictureSources(command, pending.destination(), scene.pictures.size(), progress, notices));
    progress.hide();
    page.close();
    memory.require();
    if (!page) {
        throw ExportFailed(
            quoted(pending.destination()) +
            ": the page could not be written; the disk is probably full: make room and try again");
    }
    notices.tell(console);
    // Printed first: where that fails, the run has failed and the old page stays.
    console.out << shownText(pending.destination()) + ": " + std::to_string(scene.pictures.size()) +
                       (scene.pictures.size() == 1 ? " picture" : " pictures") + "; open it with a browser\n";
    console.flush();
    pending.putInPlace();
}

} // namespace rasterplan_tool
