#pragma once

#include "refhost/db/ObjectFace.h"

namespace kvhost {

/// The settings that a drawing carries with it: unit formats and the current layer.
class KVHOST_API Settings final : public ObjectFace<Settings, KvDbObject, Object> {
public:
    Settings();
    ~Settings() override;
    [[nodiscard]] static KvRxClass* desc();

    /// 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional.
    [[nodiscard]] int LinearUnits() const { return m_linearUnits; }
    Tolm::ErrorStatus SetLinearUnits(int format) { return ChangeInRange(m_linearUnits, format, 1, 5); }
    /// Decimal places, 0 to 8.
    [[nodiscard]] int LinearPrecision() const { return m_linearPrecision; }
    Tolm::ErrorStatus SetLinearPrecision(int places) {
        return ChangeInRange(m_linearPrecision, places, 0, 8);
    }
    /// 0 degrees, 1 degrees-minutes-seconds, 2 grads, 3 radians, 4 surveyor.
    [[nodiscard]] int AngularUnits() const { return m_angularUnits; }
    Tolm::ErrorStatus SetAngularUnits(int format) { return ChangeInRange(m_angularUnits, format, 0, 4); }
    /// Decimal places, 0 to 8.
    [[nodiscard]] int AngularPrecision() const { return m_angularPrecision; }
    Tolm::ErrorStatus SetAngularPrecision(int places) {
        return ChangeInRange(m_angularPrecision, places, 0, 8);
    }
    /// The direction of the angle zero, in radians from the x axis, within a full turn either way.
    [[nodiscard]] double AngleBase() const { return m_angleBase; }
    Tolm::ErrorStatus SetAngleBase(double radians);
    /// 0 counterclockwise, 1 clockwise.
    [[nodiscard]] int AngleDirection() const { return m_angleDirection; }
    Tolm::ErrorStatus SetAngleDirection(int direction) {
        return ChangeInRange(m_angleDirection, direction, 0, 1);
    }
    /// The layer that new entities lie on.
    [[nodiscard]] KvDbObjectId CurrentLayer() const { return m_currentLayer; }
    /// eInvalidInput for what is no layer, eNotAllowed for a frozen or external one.
    Tolm::ErrorStatus SetCurrentLayer(KvDbObjectId layer);

    /// Name of the viewport in which the drawing is worked on; empty in the model without one.
    [[nodiscard]] const std::wstring& CurrentViewport() const { return m_currentViewport; }
    /// eInvalidInput for a name that no viewport has.
    Tolm::ErrorStatus SetCurrentViewport(std::wstring_view name);

    // Object
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Settings"; }
    [[nodiscard]] std::wstring Complaint() const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    friend class Database;
    Tolm::ErrorStatus ChangeInRange(std::int32_t& field, int value, int lowest, int highest);

    std::int32_t m_linearUnits = 2;
    std::int32_t m_linearPrecision = 4;
    std::int32_t m_angularUnits = 0;
    std::int32_t m_angularPrecision = 0;
    double m_angleBase = 0;
    std::int32_t m_angleDirection = 0;
    KvDbObjectId m_currentLayer;
    std::wstring m_currentViewport;
};

}  // namespace kvhost
