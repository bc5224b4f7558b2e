#include "FontTestData.h"
#include "fonts/FontScanner.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace type {
namespace {

using test::fontData;
namespace fs = std::filesystem;

const std::vector<ZString> kTestFolders{fontData("synced"), fontData("installed")};

FontCatalogue scan(const std::vector<ZString>& folders, const FontScanHooks& hooks = {}) {
    FontCatalogue catalogue;
    scanFontFolders(folders, catalogue, hooks);
    return catalogue;
}

// Each test that touches the file system gets its own empty folder.
class ScratchFolder {
public:
    ScratchFolder()
        : m_path(fs::temp_directory_path() /
                 ("type-font-scan-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                  "-" + ::testing::UnitTest::GetInstance()->current_test_info()->name())) {
        fs::remove_all(m_path);
        fs::create_directories(m_path);
    }
    ~ScratchFolder() { fs::remove_all(m_path); }
    const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
};

TEST(FontScanner, ListsEveryScalableFaceAndLocalisedFamilyInDiscoveryOrder) {
    const FontCatalogue catalogue = scan(kTestFolders);
    // The bitmap font, the damaged file and the text file are left out; the
    // installed copy of DejaVu Sans Book is shadowed by the synced one; the
    // collection gives two faces; the nested folder is scanned in its place.
    const std::vector<std::pair<ZString, ZString>> expected{
        {"DejaVu Sans", "Book"},                            // synced
        {"Liberation Mono", "Regular"},                     // a-collection.ttc, face 0
        {"Liberation Serif", "Bold"},                       // a-collection.ttc, face 1
        {"Liberation Serif", "Regular"},                    // b-serif.ttf
        {"DejaVu Sans", "Bold"},                            // dejavu-sans-bold.ttf
        {"Type Test", "Sans Regular"},                      // localised.ttf: the face's own names,
        {"Typtest Sans", "Sans Regular"},                   // German family without a German style,
        {"Type Test Sans", "Regular"},                      // English family and style,
        {"\u30c6\u30b9\u30c8\u66f8\u4f53", "\u6a19\u6e96"}, // Japanese family and style
        {"Liberation Sans", "Italic"},                      // nested/liberation-sans-italic.ttf
    };
    ZStringArray flat;
    for (const auto& [family, style] : expected) {
        flat.append(family);
        flat.append(style);
    }
    EXPECT_EQ(catalogue.fontStyleList(), flat);
}

TEST(FontScanner, FirstFolderWinsForTheSameFamilyAndStyle) {
    const auto synced = scan(kTestFolders).find("DejaVu Sans", "Book");
    ASSERT_TRUE(synced);
    EXPECT_EQ(synced->path, fontData("synced/dejavu-sans.ttf"));

    const auto installed = scan({fontData("installed"), fontData("synced")}).find("DejaVu Sans", "Book");
    ASSERT_TRUE(installed);
    EXPECT_EQ(installed->path, fontData("installed/dejavu-sans.ttf"));
}

TEST(FontScanner, LookupOverScannedFonts) {
    const FontCatalogue catalogue = scan(kTestFolders);

    const auto bold = catalogue.find("Liberation Serif", "Bold");
    ASSERT_TRUE(bold);
    EXPECT_EQ(bold->path, fontData("installed/a-collection.ttc"));
    EXPECT_EQ(bold->faceIndex, 1u);

    // Bold comes first, but Regular has the lower face index.
    const auto italic = catalogue.find("Liberation Serif", "Italic");
    ASSERT_TRUE(italic);
    EXPECT_EQ(italic->path, fontData("installed/b-serif.ttf"));
    EXPECT_FALSE(italic->exactStyle);

    // Equal face indices: the first found.
    const auto oblique = catalogue.find("DejaVu Sans", "Oblique");
    ASSERT_TRUE(oblique);
    EXPECT_EQ(oblique->path, fontData("synced/dejavu-sans.ttf"));

    const auto japanese = catalogue.find("\u30c6\u30b9\u30c8\u66f8\u4f53", "\u6a19\u6e96");
    ASSERT_TRUE(japanese);
    EXPECT_EQ(japanese->path, fontData("installed/localised.ttf"));
    EXPECT_TRUE(japanese->exactStyle);

    EXPECT_FALSE(catalogue.find("Tiny Bitmap", "Medium"));
}

TEST(FontScanner, InterruptionKeepsWhatWasFound) {
    int asked = 0;
    FontScanHooks hooks;
    hooks.interruptRequested = [&] {
        return ++asked == 3;
    };
    FontCatalogue catalogue;
    EXPECT_EQ(scanFontFolders(kTestFolders, catalogue, hooks), FontScanResult::Interrupted);
    // Asked before synced/dejavu-sans.ttf, installed/a-collection.ttc, then
    // before installed/b-serif.ttf, which is not read.
    EXPECT_EQ(catalogue.fontStyleList(), (ZStringArray{"DejaVu Sans", "Book", "Liberation Mono", "Regular",
                                                       "Liberation Serif", "Bold"}));
    EXPECT_EQ(asked, 3);
}

TEST(FontScanner, OnlyFoldersWithEntriesAreBracketed) {
    ScratchFolder empty;
    std::vector<ZString> events;
    FontScanHooks hooks;
    hooks.folderStarted = [&](const ZString& folder) {
        events.push_back("start " + folder);
    };
    hooks.folderFinished = [&] {
        events.push_back("end");
    };
    const FontCatalogue catalogue =
        scan({fontData("missing"), ZString(empty.path().string()), fontData("synced")}, hooks);
    EXPECT_EQ(events, (std::vector<ZString>{"start " + fontData("synced"), "end"}));
    EXPECT_EQ(catalogue.size(), 1u);
}

TEST(FontScanner, SymbolicLinkLoopsAndRepeatedFoldersAreReadOnce) {
    ScratchFolder folder;
    fs::copy_file(fontData("synced/dejavu-sans.ttf").asChar(), folder.path() / "sans.ttf");
    fs::create_directory_symlink(folder.path(), folder.path() / "loop");
    int asked = 0;
    FontScanHooks hooks;
    hooks.interruptRequested = [&] {
        return ++asked > 100;
    };
    const ZString path(folder.path().string());
    FontCatalogue catalogue;
    EXPECT_EQ(scanFontFolders({path, path}, catalogue, hooks), FontScanResult::Completed);
    EXPECT_EQ(catalogue.fontStyleList(), (ZStringArray{"DejaVu Sans", "Book"}));
    EXPECT_EQ(asked, 2);
}

} // namespace
} // namespace type
