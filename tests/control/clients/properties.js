// Creates the control with the given ProgID as a script does and uses its properties and methods.
// The script host ends with 0 after an uncaught error and after a syntax error: 42 alone says that all was well.
var SUCCESS = 42;
var FAILURE = 1;
var E_UNEXPECTED = 0x8000FFFF | 0;
var E_FAIL = 0x80004005 | 0;

function expect(what, actual, expected) {
    if (actual !== expected) {
        throw new Error(what + " is " + actual + " instead of " + expected);
    }
}

function expectError(what, number, work) {
    var caught = null;
    try {
        work();
    } catch (error) {
        caught = error;
    }
    if (caught === null) {
        throw new Error(what + " did not fail");
    }
    if (number !== null) {
        expect(what, caught.number | 0, number);
    }
}

function useColor(control, name, color) {
    control[name] = color;
    expect(name, control[name], color);
}

function useControl(progId) {
    var control = new ActiveXObject(progId);
    var other = new ActiveXObject(progId);
    var untouched = other.BackColor;

    useColor(control, "BackColor", 0x123456);
    useColor(control, "ForeColor", 0x345678);
    useColor(control, "ReadOnlyBackColor", 0x56789A);
    useColor(control, "ReadOnlyForeColor", 0x789ABC);
    useColor(control, "BackColor", 0x80000005);
    expect("ForeColor after the other puts", control.ForeColor, 0x345678);
    expect("ReadOnlyBackColor after the other puts", control.ReadOnlyBackColor, 0x56789A);
    expect("BackColor of the other control", other.BackColor, untouched);
    control.BackColor = "255";
    expect("BackColor put as text", control.BackColor, 255);
    expectError("BackColor put as a word", null, function () { control.BackColor = "red"; });
    expect("BackColor after a refused put", control.BackColor, 255);

    expect("KeepFocus", control.KeepFocus, false);
    expectError("Put of KeepFocus", null, function () { control.KeepFocus = true; });
    control.Refresh(0);
    control.refresh(7);

    expect("Font", control.Font, null);
    var font = new ActiveXObject("StdFont");
    font.Bold = true;
    control.Font = font;
    expect("Boldness of the font", control.Font.Bold, true);
    font.Bold = false;
    expect("Boldness after the font's change", control.Font.Bold, false);
    expectError("Font put as a control", null, function () { control.Font = other; });
    expect("PropertyIdentifier", control.PropertyIdentifier, null);
    expectError("LaunchDialog without a flag", E_UNEXPECTED, function () { control.LaunchDialog("", 0); });
    expectError("InitEditControl without arrays", E_FAIL,
        function () { control.InitEditControl(1, 2, 3, false); });
    expectError("An unknown name", null, function () { control.NoSuchMember(); });
}

var result = FAILURE;
try {
    useControl(WScript.Arguments(0));
    result = SUCCESS;
} catch (error) {
    WScript.Echo(WScript.Arguments(0) + ": " + error.message + " (" + (error.number | 0) + ")");
}
WScript.Quit(result);
