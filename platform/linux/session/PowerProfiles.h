#pragma once

#include <QObject>
#include <QVariantMap>

namespace vantro {

/// The power profile as the system's daemon knows it: power-profiles-daemon under its former or its present name, or
/// what stands in for it. Without one nobody saves power.
class PowerProfiles final : public QObject
{
    Q_OBJECT
public:
    PowerProfiles();

    [[nodiscard]] bool isSaving() const { return isSaving_; }

private Q_SLOTS:
    void propertiesChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

private:
    void take(const QVariantMap& properties);

    bool isSaving_ = false;
};

} // namespace vantro
