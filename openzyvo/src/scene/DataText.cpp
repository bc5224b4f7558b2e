#include "scene/DataText.h"

#include "data/MatrixData.h"
#include "data/MeshData.h"
#include "data/ValueData.h"
#include "scene/MeshText.h"
#include "scene/SceneText.h"
#include "scene/ValueList.h"

namespace oz::scene {

namespace {

template <typename Item, typename Read>
bool readItems(ValueList& list, std::size_t width, std::vector<Item>& items, std::string& error, Read read) {
    std::size_t count = 0;
    if (!list.count(width, count, error))
        return false;
    items.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        Item item{};
        if (!read(item))
            return false;
        items.push_back(std::move(item));
    }
    return true;
}

std::shared_ptr<Data> parseWith(ValueList& list, ZFnData::Type type, std::string& error) {
    switch (type) {
    case ZFnData::kString: {
        std::string text;
        if (!list.text(text, error))
            return nullptr;
        return std::make_shared<StringData>(ZString(text));
    }
    case ZFnData::kStringArray: {
        std::vector<ZString> items;
        if (!readItems(list, 1, items, error, [&](ZString& item) {
                std::string text;
                const bool ok = list.text(text, error);
                item = ZString(text);
                return ok;
            }))
            return nullptr;
        ZStringArray array;
        for (ZString& item : items)
            array.append(std::move(item));
        return std::make_shared<StringArrayData>(std::move(array));
    }
    case ZFnData::kDoubleArray: {
        std::vector<double> items;
        if (!readItems(list, 1, items, error, [&](double& item) { return list.number(item, error); }))
            return nullptr;
        ZDoubleArray array;
        for (double item : items)
            array.append(item);
        return std::make_shared<DoubleArrayData>(std::move(array));
    }
    case ZFnData::kIntArray: {
        std::vector<int> items;
        if (!readItems(list, 1, items, error, [&](int& item) { return list.integer(item, error); }))
            return nullptr;
        ZIntArray array;
        for (int item : items)
            array.append(item);
        return std::make_shared<IntArrayData>(std::move(array));
    }
    case ZFnData::kVectorArray: {
        std::vector<ZVector> items;
        if (!readItems(list, 3, items, error, [&](ZVector& v) {
                return list.number(v.x, error) && list.number(v.y, error) && list.number(v.z, error);
            }))
            return nullptr;
        ZVectorArray array;
        for (const ZVector& item : items)
            array.append(item);
        return std::make_shared<VectorArrayData>(std::move(array));
    }
    case ZFnData::kPointArray: {
        std::vector<ZPoint> items;
        if (!readItems(list, 4, items, error, [&](ZPoint& p) {
                return list.number(p.x, error) && list.number(p.y, error) && list.number(p.z, error) &&
                       list.number(p.w, error);
            }))
            return nullptr;
        ZPointArray array;
        for (const ZPoint& item : items)
            array.append(item);
        return std::make_shared<PointArrayData>(std::move(array));
    }
    case ZFnData::kMatrix: {
        ZMatrix matrix;
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                if (!list.number(matrix.matrix[row][column], error))
                    return nullptr;
        return std::make_shared<MatrixData>(matrix);
    }
    case ZFnData::kMesh:
        return parseMesh(list, error);
    default:
        error = "values of this data type cannot be set";
        return nullptr;
    }
}

} // namespace

std::shared_ptr<Data> parseData(ZFnData::Type type, std::span<const cmd::Value> values, std::string& error) {
    ValueList list(values);
    std::shared_ptr<Data> data = parseWith(list, type, error);
    if (data && !list.finished(error))
        return nullptr;
    return data;
}

bool formatData(const Data& data, std::string& out) {
    if (const auto* text = dynamic_cast<const StringData*>(&data)) {
        out += ' ';
        appendQuoted(out, text->value.asStdString());
    } else if (const auto* strings = dynamic_cast<const StringArrayData*>(&data)) {
        out += ' ' + std::to_string(strings->value.length());
        for (unsigned int i = 0; i < strings->value.length(); ++i) {
            out += ' ';
            appendQuoted(out, strings->value[i].asStdString());
        }
    } else if (const auto* doubles = dynamic_cast<const DoubleArrayData*>(&data)) {
        out += ' ' + std::to_string(doubles->value.length());
        for (unsigned int i = 0; i < doubles->value.length(); ++i)
            appendNumber(out, doubles->value[i]);
    } else if (const auto* ints = dynamic_cast<const IntArrayData*>(&data)) {
        out += ' ' + std::to_string(ints->value.length());
        for (unsigned int i = 0; i < ints->value.length(); ++i)
            out += ' ' + std::to_string(ints->value[i]);
    } else if (const auto* vectors = dynamic_cast<const VectorArrayData*>(&data)) {
        out += ' ' + std::to_string(vectors->value.length());
        for (unsigned int i = 0; i < vectors->value.length(); ++i)
            for (double c : {vectors->value[i].x, vectors->value[i].y, vectors->value[i].z})
                appendNumber(out, c);
    } else if (const auto* points = dynamic_cast<const PointArrayData*>(&data)) {
        out += ' ' + std::to_string(points->value.length());
        for (unsigned int i = 0; i < points->value.length(); ++i) {
            const ZPoint& p = points->value[i];
            for (double c : {p.x, p.y, p.z, p.w})
                appendNumber(out, c);
        }
    } else if (const auto* matrix = dynamic_cast<const MatrixData*>(&data)) {
        for (const auto& row : matrix->value.matrix)
            for (double c : row)
                appendNumber(out, c);
    } else if (const auto* mesh = dynamic_cast<const MeshData*>(&data)) {
        formatMesh(mesh->mesh, out);
    } else {
        return false;
    }
    return true;
}

std::optional<cmd::Value> dataValue(const Data& data) {
    if (const auto* text = dynamic_cast<const StringData*>(&data))
        return cmd::Value(text->value.asStdString());
    if (const auto* strings = dynamic_cast<const StringArrayData*>(&data)) {
        std::vector<std::string> out;
        for (unsigned int i = 0; i < strings->value.length(); ++i)
            out.push_back(strings->value[i].asStdString());
        return cmd::Value(std::move(out));
    }
    if (const auto* ints = dynamic_cast<const IntArrayData*>(&data)) {
        std::vector<int> out;
        for (unsigned int i = 0; i < ints->value.length(); ++i)
            out.push_back(ints->value[i]);
        return cmd::Value(std::move(out));
    }
    std::vector<double> out;
    if (const auto* doubles = dynamic_cast<const DoubleArrayData*>(&data)) {
        for (unsigned int i = 0; i < doubles->value.length(); ++i)
            out.push_back(doubles->value[i]);
    } else if (const auto* vectors = dynamic_cast<const VectorArrayData*>(&data)) {
        for (unsigned int i = 0; i < vectors->value.length(); ++i)
            out.insert(out.end(), {vectors->value[i].x, vectors->value[i].y, vectors->value[i].z});
    } else if (const auto* points = dynamic_cast<const PointArrayData*>(&data)) {
        for (unsigned int i = 0; i < points->value.length(); ++i)
            out.insert(out.end(), {points->value[i].x, points->value[i].y, points->value[i].z});
    } else if (const auto* matrix = dynamic_cast<const MatrixData*>(&data)) {
        for (const auto& row : matrix->value.matrix)
            out.insert(out.end(), row, row + 4);
    } else if (const auto* mesh = dynamic_cast<const MeshData*>(&data)) {
        for (const mesh::Point3& p : mesh->mesh.points())
            out.insert(out.end(), {p.x, p.y, p.z});
    } else {
        return std::nullopt;
    }
    return cmd::Value(std::move(out));
}

} // namespace oz::scene
