#pragma once

#include <QString>
#include <optional>
#include <utility>

/// A text file, written as the settings and the lists of job names are, and the user's registry,
/// both below one folder, which is that of the run. Each state that they can be in is a number.
class SmallFiles {
public:
    explicit SmallFiles(QString folder) : folder_(std::move(folder)) {}

    /// Puts both into a state, the text first. Raises what the program's own writing raises.
    void Write(int state) const;
    void WriteText(int state) const;
    void WriteRegistry(int state) const;

    /// The state that a whole file is in; none if it is not a whole one.
    std::optional<int> TextState() const;
    std::optional<int> RegistryState() const;

    QString TextFile() const { return folder_ + QStringLiteral("/lines.txt"); }
    QString RegistryFile() const {
        return folder_ + QStringLiteral("/UserConfig/sparkit-dutygrid/registry.json");
    }

private:
    QString folder_;
};
