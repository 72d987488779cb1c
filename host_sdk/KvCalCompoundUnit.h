#pragma once

// The host's calculator library exports this class. Modules load it at first use and look its operations up:
// nothing here is imported at start.
#ifdef KVCALC_BUILD
#define KVCALC_API __declspec(dllexport)
#else
#define KVCALC_API
#endif

inline constexpr const wchar_t* KVCALC_LIBRARY = L"KvCalc.dll";

/// What a number of the calculator counts: powers of lengths and of angles. 1 and 0 is a length, 2 and 0 an
/// area, 0 and 0 a number without unit.
class KvCalCompoundUnit {
public:
    /// Without unit.
    KVCALC_API KvCalCompoundUnit();
    KVCALC_API KvCalCompoundUnit(int lengthPower, int anglePower);

    [[nodiscard]] KVCALC_API bool IsUnitless() const;
    [[nodiscard]] KVCALC_API bool IsLength() const;
    [[nodiscard]] KVCALC_API bool IsArea() const;
    [[nodiscard]] KVCALC_API bool IsAngle() const;

    [[nodiscard]] int LengthPower() const { return m_lengthPower; }
    [[nodiscard]] int AnglePower() const { return m_anglePower; }

private:
    int m_lengthPower;
    int m_anglePower;
};

/// The names under which the library exports operations, for those who look them up.
inline constexpr const char* KVCALC_UNIT_CONSTRUCTOR = "_ZN17KvCalCompoundUnitC1Ev";
