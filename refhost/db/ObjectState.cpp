#include "refhost/db/ObjectState.h"

#include <array>

#include "refhost/db/Arc.h"
#include "refhost/db/Attribute.h"
#include "refhost/db/Block.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Dictionary.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/db/Point.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/RecordWriter.h"
#include "refhost/db/Text.h"

namespace kvhost {

namespace {

template <class Concrete>
std::unique_ptr<Object> Make() {
    return std::make_unique<Concrete>();
}

struct Maker {
    const wchar_t* className;
    std::unique_ptr<Object> (*make)();
};

constexpr std::array s_makers{
    Maker{L"Arc", Make<Arc>},       Maker{L"Attribute", Make<Attribute>},
    Maker{L"Block", Make<Block>},   Maker{L"BlockReference", Make<BlockReference>},
    Maker{L"Circle", Make<Circle>}, Maker{L"Dictionary", Make<Dictionary>},
    Maker{L"Layer", Make<Layer>},   Maker{L"Line", Make<Line>},
    Maker{L"Point", Make<Point>},   Maker{L"Polyline", Make<Polyline>},
    Maker{L"Text", Make<Text>},
};

}  // namespace

std::string StateOf(const Object& object) {
    std::string bytes;
    AppendState(object, object.IsErased(), bytes);
    return bytes;
}

void AppendState(const Object& object, bool erased, std::string& bytes) {
    bytes.push_back(erased ? '\1' : '\0');
    RecordWriter writer(bytes);
    // Writers only look, though the visitor that they share with readers could change fields.
    const_cast<Object&>(object).VisitAllFields(writer);
}

bool IsErasedState(std::string_view state) {
    return state.front() != '\0';
}

std::string_view FieldsOfState(std::string_view state) {
    return state.substr(1);
}

std::unique_ptr<Object> MakeObject(std::wstring_view className) {
    for (const Maker& maker : s_makers) {
        if (className == maker.className) {
            return maker.make();
        }
    }
    return nullptr;
}

}  // namespace kvhost
