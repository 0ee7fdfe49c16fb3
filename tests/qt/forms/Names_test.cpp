// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader says, on the nine forms as they are.
#include "forms/SpokenNames.h"
#include "qt/QtUser.h"

#include "doubles/TestHouse.h"
#include "ui/FormListing.h"

#include <QAccessible>
#include <QAccessibleInterface>

namespace sm::qt {
namespace {

using Texts = std::vector<std::string>;

TEST(Spoken, LeavesOutWhatIsForTheEye)
{
    EXPECT_EQ(Spoken("Canc&el"), "Cancel");
    EXPECT_EQ(Spoken("Paper Size:"), "Paper Size");
    EXPECT_EQ(Spoken("Text && Lines &"), "Text & Lines");
    EXPECT_EQ(Spoken(""), "");
}

bool NeedsAName(const FormControl& control)
{
    return control.tabIndex >= 0 && control.caption.empty() && control.visible;
}

class Names : public TestHouse {
protected:
    Names() { BeginCall(); }
    static Texts Of(const Form& form)
    {
        Texts names;
        for (std::size_t i = 0; i < form.Controls().size(); ++i) {
            if (NeedsAName(form.Controls()[i]))
                names.push_back(form.Controls()[i].name + ": " + SpokenName(form.Controls(), i));
        }
        return names;
    }
    FormSession session{context, TheScreen().Toolkit(), {}};
    NineForms forms{session};
};

TEST_F(Names, ComeFromTheLabelsBesideAndAbove)
{
    EXPECT_EQ(Of(forms.gui), (Texts{"tabPDFMaker: Tarnwick Sheetmaker PDF",
                                    "cmbJobOpts: Raster Image Quality",
                                    "cmbPaperUnits: Units",
                                    "cmbPaperSize: Paper Size",
                                    "cmbView: View",
                                    "cmbPlotStyle: Name",
                                    "cmbScale: Scale",
                                    "txtScaleNumer: Custom, Inches",
                                    "txtScaleDenom: Drawing Units",
                                    "txtPlotOffsetX: X, Inches",
                                    "txtPlotOffsetY: Y, Inches",
                                    "cmbStampText: Select Stamp Text",
                                    "cmbStampFont: Font",
                                    "cmbStampSize: Size",
                                    "cmbStampJustify: Justify",
                                    "btnStampColor: Color",
                                    "cmbStampLayout: Layout Tab",
                                    "txtStampX: X",
                                    "txtStampY: Y",
                                    "lstAttach: File Attachments",
                                    "lstDigSig: Digital Signature Fields"}));
    EXPECT_EQ(Of(forms.attach),
              (Texts{"txtAttachFile: File Name", "cmbAttachLayout: Layout Tab", "txtAttachX: X", "txtAttachY: Y"}));
    EXPECT_EQ(Of(forms.digSig),
              (Texts{"txtDigSigName: Title", "txtDigSigDesc: Description", "cmbDigSigLayout: Layout Tab",
                     "txtDigSigX1: X1", "txtDigSigY1: Y1", "txtDigSigX2: X2", "txtDigSigY2: Y2"}));
    EXPECT_EQ(Of(forms.customStamp), Texts{"txtCustomStamp: Customize Text Stamps"});
    EXPECT_EQ(Of(forms.jobOpts), Texts{"cmbJobOpts: Resolution"});
}

TEST_F(Names, ReachTheScreenReader)
{
    WhenShown([&] {
        const auto name = [](const char* control) {
            const QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(QtUser::Find(control));
            return spoken->text(QAccessible::Name).toStdString();
        };
        EXPECT_EQ(name("txtScaleNumer"), "Custom, Inches");
        EXPECT_EQ(name("chkPlotStyles"), "Plot With Plot Styles");
        EXPECT_EQ(name("btnCancel"), "Cancel");
        EXPECT_EQ(name("imgLogo"), "Tarnwick, on the web");
        forms.gui.SetCaption("lblScaleUnits", "mm");
        EXPECT_EQ(name("txtScaleNumer"), "Custom, mm") << "with the unit in force";
        const QAccessibleInterface* const logo = QAccessible::queryAccessibleInterface(QtUser::Find("imgLogo"));
        EXPECT_EQ(logo->role(), QAccessible::PushButton);
        forms.gui.Hide();
    });
    EXPECT_TRUE(forms.gui.ShowModal());
}

TEST_F(Names, NoControlThatTheKeyboardReachesIsNameless)
{
    for (const Form* form : forms.All()) {
        for (std::size_t i = 0; i < form->Controls().size(); ++i) {
            if (NeedsAName(form->Controls()[i])) {
                EXPECT_NE(SpokenName(form->Controls(), i), "") << form->Name() << "." << form->Controls()[i].name;
            }
        }
    }
}

} // namespace
} // namespace sm::qt
