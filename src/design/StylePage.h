#pragma once

#include "control/StylePreset.h"
#include "core/OrrinQuiverExport.h"

#include <QtWidgets/QWidget>

#include <memory>

namespace OrrinQuiver {

class StylePagePrivate;

// The style page: a drop-down of the five drawing styles (cmbStyle), the
// description of the chosen one, and a button (cmdApplySettings) that writes
// the chosen style's preset to a control.
class ORRINQUIVER_EXPORT StylePage : public QWidget
{
    Q_OBJECT

public:
    explicit StylePage(QWidget *parent = nullptr);
    ~StylePage() override;

    // Shows the page for the control behind `target`: the drop-down selects
    // the control's Style, or nothing when it reads as none of the five. A
    // null target leaves the page without a control and the button disabled.
    void setTarget(std::unique_ptr<StylePreset::Target> target);
    // The same for a control reached through QObject's properties by name;
    // null as for setTarget.
    void setControl(QObject *control);

private:
    std::unique_ptr<StylePagePrivate> const d;
};

} // namespace OrrinQuiver
