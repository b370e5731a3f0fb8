#include "SessionFixture.h"

#include "store/FileIo.h"

namespace orr::test {

PictureRef textPicture(const std::string& text) {
    return std::make_shared<const TextPicture>(text);
}

std::string textOf(const PictureRef& picture) {
    const auto* text = dynamic_cast<const TextPicture*>(picture.get());
    return text ? text->text() : std::string();
}

std::vector<PictureRef> TextPictureCodec::loadStrip(const fs::path& file, int count,
                                                    std::string* error) {
    std::vector<PictureRef> cells;
    std::string bytes = readBytes(file) + "|";
    for (std::size_t at = 0; static_cast<int>(cells.size()) < count;) {
        const std::size_t bar = bytes.find('|', at);
        const std::string cell = bar == std::string::npos ? "" : bytes.substr(at, bar - at);
        cells.push_back(cell.empty() ? nullptr : textPicture(cell));
        at = bar == std::string::npos ? bytes.size() : bar + 1;
    }
    if (error) error->clear();
    return cells;
}

bool TextPictureCodec::saveStrip(const fs::path& file, const std::vector<PictureRef>& pictures,
                                 std::string* error) {
    std::string bytes;
    for (std::size_t i = 0; i < pictures.size(); ++i) bytes += (i ? "|" : "") + textOf(pictures[i]);
    return writeFileAtomically(file, bytes, error);
}

PictureRef TextPictureCodec::loadPicture(const fs::path& file, std::string*) {
    return textPicture(readBytes(file));
}

bool TextPictureCodec::savePicture(const fs::path& file, const PictureRef& picture,
                                   std::string* error) {
    return writeFileAtomically(file, textOf(picture), error);
}

SessionTest::SessionTest() : session(game.folder()) {
    session.InitTables();
    session.setPictureCodec(&codec);
}

void SessionTest::openSystem(const std::string& name, int planets, std::string_view extra) {
    game.writeDescriptor(TempGameFolder::systemRecord(name, planets), extra);
    ASSERT_TRUE(session.open(name, [] { return false; })) << session.lastError();
}

std::string SessionTest::workingCopy() const {
    return game.read("ORBDescriptor/" + session.name() + ".edt");
}

std::string SessionTest::saved() const {
    return game.read("ORBDescriptor/" + session.name() + ".orb");
}

bool SessionTest::workingCopyHasSavedTime() const {
    return modificationTime(game.descriptor(session.name() + ".edt")) ==
           modificationTime(game.descriptor(session.name() + ".orb"));
}

}  // namespace orr::test
