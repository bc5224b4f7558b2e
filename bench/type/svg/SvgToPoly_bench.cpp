#include "svg/SvgCaps.h"
#include "svg/SvgMesh.h"
#include "svg/SvgReader.h"

#include <OpenZyvo/ZObject.h>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace type {
namespace {

// The curve resolution the fidelity test holds; the point filter is off so
// that every point of the artwork is meshed whatever its size.
constexpr int kCurveResolution = 8;

QByteArray readFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        std::abort();
    return file.readAll();
}

// What one evaluation of the node does with a file: read it, parse it, plan
// the caps and build the mesh.
std::size_t meshFile(const QString& path) {
    const SvgReadResult read = readSvg(readFile(path), {kCurveResolution, false});
    if (read.status != SvgReadStatus::ok)
        std::abort();
    const SvgCapSettings settings;
    const std::vector<SvgShapeCap> caps = planShapeCaps(read.artwork, settings);
    ZObject mesh;
    SvgMeshRecord record;
    if (!svgToMesh(caps, true, mesh, record))
        std::abort();
    return record.vertexTotals.empty() ? 0 : static_cast<std::size_t>(record.vertexTotals.back());
}

void BM_Corpus(benchmark::State& state) {
    QStringList files;
    QDirIterator corpus(SVG_CORPUS_DIR, {"*.svg"}, QDir::Files, QDirIterator::Subdirectories);
    while (corpus.hasNext())
        files << corpus.next();
    std::size_t vertices = 0;
    for (auto _ : state) {
        vertices = 0;
        for (const QString& file : files)
            vertices += meshFile(file);
    }
    state.counters["files"] = static_cast<double>(files.size());
    state.counters["vertices"] = static_cast<double>(vertices);
}
BENCHMARK(BM_Corpus)->Unit(benchmark::kMillisecond);

// A map-like sheet of 4096 tiles, each a rounded square with a round hole
// drawn with arcs, a star polygon and a circle: about 1.2 MB of SVG.
QByteArray largeDocument() {
    QByteArray document = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 6400 6400\">\n";
    for (int row = 0; row < 64; ++row) {
        for (int column = 0; column < 64; ++column) {
            const int x = column * 100;
            const int y = row * 100;
            QByteArray tile = QByteArray("<g transform=\"translate(") + QByteArray::number(x) + " " +
                              QByteArray::number(y) + ")\" fill=\"#3a7bd5\">";
            tile +=
                "<path d=\"M10 2H70C74.4 2 78 5.6 78 10V70C78 74.4 74.4 78 70 78H10C5.6 78 2 74.4 2 70V10C2 "
                "5.6 5.6 2 10 2Z M40 20A20 20 0 1 0 40.01 20Z\"/>";
            tile += "<polygon points=\"90,2 92,8 98,8 93,12 95,18 90,14 85,18 87,12 82,8 88,8\"/>";
            tile += "<circle cx=\"90\" cy=\"90\" r=\"6\"/></g>\n";
            document += tile;
        }
    }
    return document + "</svg>\n";
}

void BM_LargeDocument(benchmark::State& state) {
    QTemporaryDir folder;
    const QString path = folder.filePath("large.svg");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    const QByteArray document = largeDocument();
    file.write(document);
    file.close();
    std::size_t vertices = 0;
    for (auto _ : state)
        vertices = meshFile(path);
    state.counters["bytes"] = static_cast<double>(document.size());
    state.counters["vertices"] = static_cast<double>(vertices);
}
BENCHMARK(BM_LargeDocument)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace type
