#pragma once

#include "tests/common/Charts.h"
#include "tests/common/FormTest.h"

#include <QStringList>

using namespace Qt::StringLiterals;

/// A fixture for what the windows look like, at whatever scale the process runs: a family with
/// short and long names, charts of short and long jobs, and a look at each window for what is cut.
class LookTest : public FormTest {
protected:
    LookTest();

    static void MakeFamily();
    /// A chart of that many jobs on each day of the week of the tests' clock.
    static void MakeChart(const QString& name, const QString& owner, int jobsADay,
                          const QString& job = QString());
    static QString LongName();
    static QString LongJob();

    /// Shows a form of the program, settled.
    template <class T>
    static T& ShowForm() {
        auto& form = Default<T>();
        form.Show();
        Settle();
        return form;
    }

    /// A form of a size of its own may be larger than the main window, which then scrolls.
    enum class Fits { Wholly, AsItIs };

    /// Looks a shown form over, and compares it with its picture.
    static void Look(Form& form, const QString& name, Fits fits = Fits::Wholly);

    /// The texts that are cut, controls outside their parents, and a form that is not whole in the
    /// main window, one a line; empty if all is well.
    static QStringList Faults(Form& form, Fits fits);
};
