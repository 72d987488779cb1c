#include "refhost/automation/PropertyAccess.h"

#include <array>

#include "framework/com/SafeArray.h"
#include "refhost/testing/JournalText.h"

namespace kvhost {

namespace {

constexpr long c_colorByBlock = 0;
constexpr long c_colorByLayer = 256;
constexpr unsigned long c_trueColor = 0xC2000000UL;
constexpr unsigned long c_methodMask = 0xFF000000UL;

}  // namespace

fw::Variant NumbersToVariant(std::span<const double> numbers) {
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_R8, 0, static_cast<ULONG>(numbers.size()));
    double* elements = nullptr;
    if (array != nullptr && SUCCEEDED(::SafeArrayAccessData(array, reinterpret_cast<void**>(&elements)))) {
        std::copy(numbers.begin(), numbers.end(), elements);
        ::SafeArrayUnaccessData(array);
    }
    return fw::Variant::FromArray(VT_R8, array);
}

Tolm::ErrorStatus NumbersFromVariant(const fw::Variant& value, std::vector<double>& numbers) {
    fw::SafeArrayView view;
    if (FAILED(fw::SafeArrayView::FromVariant(value.Address(), view))) {
        return Tolm::eInvalidInput;
    }
    numbers.clear();
    for (LONG i = 0; i < view.Count(); ++i) {
        fw::Variant element;
        if (FAILED(view.GetVariant(i, element)) || FAILED(element.ChangeType(VT_R8))) {
            return Tolm::eInvalidInput;
        }
        numbers.push_back(element.DoubleOr(0));
    }
    return Tolm::eOk;
}

fw::Variant PointToVariant(const Point3& point) {
    return NumbersToVariant(std::array{point.x, point.y, point.z});
}

Tolm::ErrorStatus PointFromVariant(const fw::Variant& value, Point3& point) {
    std::vector<double> numbers;
    const Tolm::ErrorStatus status = NumbersFromVariant(value, numbers);
    if (status != Tolm::eOk || numbers.size() < 2 || numbers.size() > 3) {
        return Tolm::eInvalidInput;
    }
    point = {numbers[0], numbers[1], numbers.size() == 3 ? numbers[2] : 0};
    return Tolm::eOk;
}

long ColorToNumber(const ColorValue& color) {
    switch (color.method) {
        case ColorValue::Method::ByLayer:
            return c_colorByLayer;
        case ColorValue::Method::ByBlock:
            return c_colorByBlock;
        case ColorValue::Method::Index:
            return color.index;
        case ColorValue::Method::Rgb:
            break;
    }
    return static_cast<long>(c_trueColor | static_cast<unsigned long>(color.red) << 16 |
                             static_cast<unsigned long>(color.green) << 8 | color.blue);
}

Tolm::ErrorStatus ColorFromNumber(long number, ColorValue& color) {
    const auto bits = static_cast<unsigned long>(number);
    if (number == c_colorByLayer) {
        color = ColorValue::ByLayer();
    } else if (number == c_colorByBlock) {
        color = ColorValue::ByBlock();
    } else if (number > 0 && number < c_colorByLayer) {
        color = ColorValue::OfIndex(static_cast<std::uint8_t>(number));
    } else if ((bits & c_methodMask) == c_trueColor) {
        color = ColorValue::OfRgb(static_cast<std::uint8_t>(bits >> 16), static_cast<std::uint8_t>(bits >> 8),
                                  static_cast<std::uint8_t>(bits));
    } else {
        return Tolm::eInvalidInput;
    }
    return Tolm::eOk;
}

Tolm::ErrorStatus ReadHandle(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromString(AsText(object.Id()));
    return Tolm::eOk;
}

}  // namespace kvhost
