#include "parameter/NumericParameter.h"
#include "parameter/tov/CompositeCommand.h"

#include <QTextStream>

int main() {
    QTextStream out(stdout);
    auto const at = [](double frame) { return Kyn::Context(Kyn::Time(frame), Kyn::View(), Kyn::ProxyScale::FULL); };

    // A value that goes from 0 at frame 1 to 12 at frame 25, and never beyond its limits of -100 and 100.
    Kyn::NumericParameter<double> shift(true, "Shift", 0.0, -100.0, 100.0, Kyn::INTERPOLATION_LINEAR,
                                        Kyn::EXTRAPOLATION_CONSTANT);
    shift.setValue(0.0, at(1));
    shift.setValue(12.0, at(25));
    out << "at frame 13: " << shift.value(at(13)) << "\n";

    // An edit that can be taken back.
    Tov::CompositeCommand edit;
    shift.valueCommand(9.0, at(13), edit);
    edit.redo();
    out << "edited:      " << shift.value(at(13)) << "\n";
    edit.undo();
    out << "undone:      " << shift.value(at(13)) << "\n";

    // What stands in a project file.
    shift.bStreamOut(out, QString(), true);
}
