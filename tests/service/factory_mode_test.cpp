// The door of the service pages, and that no way of leaving them leaves a carrier on.
#include "measure/run.h"
#include "service/hardware_init.h"
#include "support/service_rig.h"

namespace qor::test {
namespace {

TEST(FactoryMode, OpensByItsPinAloneAndStaysShutForAWhileBehindThreeWrongOnes) {
    Rig rig;
    NotedDialogs dialogs;
    ServiceDesk& service = rig.program.Service();
    const auto tryPin = [&](const char* pin) {
        const std::size_t before = dialogs.opened.size();
        dialogs.whileOpen = [&] { service.EnterPin(pin); };
        rig.Done(service.Home(dialogs));
        return dialogs.opened.size() > before;
    };
    EXPECT_TRUE(tryPin("740260"));
    EXPECT_TRUE(tryPin(""));
    EXPECT_TRUE(tryPin("0740261"));
    EXPECT_FALSE(tryPin("740261")) << "three wrong in a row";
    rig.time.RunFor(29900);
    EXPECT_FALSE(tryPin("740261"));
    rig.time.RunFor(200);
    EXPECT_TRUE(tryPin("111111"));
    EXPECT_FALSE(rig.S().factory.IsOn());
    EXPECT_TRUE(tryPin("740261"));
    EXPECT_TRUE(rig.S().factory.IsOn());
    EXPECT_TRUE(rig.Told().empty()) << "it is silent";

    rig.user.answer = false;
    tryPin("");
    EXPECT_TRUE(rig.S().factory.IsOn()) << "the second press asks";
    rig.user.answer = true;
    tryPin("");
    EXPECT_FALSE(rig.S().factory.IsOn());
    EXPECT_EQ(rig.user.questions, Times(2, "Do you want to exit factory mode?"));
}

TEST(FactoryMode, OnePageAtATimeAndNoneWithinARun) {
    ServiceRig rig;
    ServiceDesk& service = rig.program.Service();
    EXPECT_FALSE(rig.Done(service.PressPage(ServicePage::Calibration)));
    EXPECT_TRUE(rig.Done(service.PressPage(ServicePage::Test)));
    EXPECT_EQ(rig.S().factory.Page(), ServicePage::None);

    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.RunUntilRunIsOn());
    EXPECT_FALSE(rig.Done(service.PressPage(ServicePage::Test)));
    EXPECT_EQ(rig.Told().back(), "\nHalten Messung erst!");
    rig.program.StopMeas();
    ASSERT_TRUE(rig.RunUntilIdle());

    ASSERT_TRUE(rig.Done(service.PressPage(ServicePage::Calibration)));
    EXPECT_TRUE(rig.Done(rig.program.Select().SelectOrder(2))) << "the hint follows the order";
    for (const Outcome& refused :
         {rig.program.Select().SelectBand(BandDcs), rig.program.Select().SelectMethod(2),
          service.PressPage(ServicePage::Test), rig.program.OnExitButton()})
        EXPECT_FALSE(refused);
    NotedDialogs none;
    rig.Done(service.Home(none));
    EXPECT_FALSE(rig.S().factory.IsOn());
    EXPECT_EQ(rig.S().factory.Page(), ServicePage::None);
}

TEST(FactoryMode, NothingStartsWhileSomethingGoesOnOnAPage) {
    ServiceRig rig;
    rig.S().factory.Begin(ServiceWork::Restore);
    rig.program.OnMeasButton();
    rig.time.RunFor(3000);
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_FALSE(rig.Done(rig.program.Select().SelectBand(BandDcs)));
    EXPECT_FALSE(rig.Done(rig.program.Service().Memory().Read(125, 95)));
    EXPECT_FALSE(rig.S().factory.Begin(ServiceWork::Fatigue));
}

TEST(FreeCommand, GoesOutAsItIsTypedAndItsReplyStandsInThePane) {
    ServiceRig rig;
    ServiceDesk& service = rig.program.Service();
    ASSERT_TRUE(rig.Done(service.Send("#SAB?")));
    rig.RunUntilIdle();
    EXPECT_EQ(rig.S().response.Text(), "SAB0\r\n");
    ASSERT_TRUE(rig.Done(service.Send("$KVTWE}qA")));
    rig.RunUntilIdle();
    EXPECT_EQ(rig.S().response.Text(), "KVTWE}qA\r\n");
    EXPECT_EQ(rig.Said("#SAB?"), (std::vector<std::string>{"#SAB?", "$KVTWE}qA"}))
        << "no byte is put behind it";
    EXPECT_EQ(rig.Own('q'), 'A');
    const auto& lines = rig.S().response.Lines();
    EXPECT_EQ(std::vector<std::string>(lines.end() - 3, lines.end()),
              (std::vector<std::string>{"< SAB0", "> $KVTWE}qA", "< KVTWE}qA"}));
    for (int n = 0; n < 600; ++n) {
        ASSERT_TRUE(rig.Done(service.Send("#SST?")));
        rig.RunUntilIdle();
    }
    EXPECT_EQ(lines.size(), ResponsePane::MostLines);

    rig.port.SetPortOpen(false);
    EXPECT_FALSE(rig.Done(service.Send("#SAB?")));
    EXPECT_EQ(rig.Told().back(), "Oeffnen port erst!");
    EXPECT_FALSE(rig.port.GetPortOpen());
}

enum class Way { ExitTest, Home, Loss, Close, Silent };

TEST(FreeCommand, CarriersThatItHasSwitchedOnAreOffWithinTwoSecondsOfAnyEnd) {
    for (const Way way : {Way::ExitTest, Way::Home, Way::Loss, Way::Close, Way::Silent}) {
        for (const char* on : {"#SPA1", "#SPB1", "#M2T1"}) {
            SCOPED_TRACE(std::string(on) + " " + std::to_string(static_cast<int>(way)));
            ServiceRig rig;
            ServiceDesk& service = rig.program.Service();
            ASSERT_TRUE(rig.Done(service.Send(on)));
            rig.time.RunFor(10000);
            ASSERT_NE(rig.instrument.Settings().carrier1 + rig.instrument.Settings().carrier2, 0)
                << "they stay as they were ordered";
            NotedDialogs none;
            switch (way) {
            case Way::ExitTest:
                rig.Done(service.PressPage(ServicePage::Test));
                break;
            case Way::Home:
                rig.user.whileAsked = [&] {
                    rig.time.RunFor(2000);
                    EXPECT_EQ(rig.instrument.Settings().carrier1 + rig.instrument.Settings().carrier2, 0)
                        << "no question stands over carriers";
                };
                rig.Done(service.Home(none));
                break;
            case Way::Loss:
                rig.port.Unplug();
                rig.time.RunFor(100);
                rig.port.Replug();
                rig.RunUntilReady();
                break;
            case Way::Close:
                rig.program.Leave();
                break;
            case Way::Silent: // a command that is never answered holds up what switches them off no longer
                rig.Done(service.Send("#SWEEP"));
                rig.time.RunFor(50);
                rig.Done(service.PressPage(ServicePage::Test));
                break;
            }
            rig.time.RunFor(2000);
            EXPECT_EQ(rig.instrument.Settings().carrier1 + rig.instrument.Settings().carrier2, 0);
        }
    }
}

TEST(FreeCommand, ItsCarriersAreOffBeforeARestoreOrAnInitialisationAsks) {
    for (const bool restores : {false, true}) {
        ServiceRig rig;
        ServiceDesk& service = rig.program.Service();
        ASSERT_TRUE(rig.Done(service.Memory().Write({'}', 100, 7})));
        ASSERT_TRUE(rig.RunUntilFree());
        ASSERT_TRUE(rig.Done(service.Send("#SPA1")));
        rig.time.RunFor(1000);
        for (const auto& entry : std::filesystem::directory_iterator(rig.dir.Path()))
            if (entry.path().filename().string().starts_with("memory-RT"))
                rig.user.filesToOpen = {entry.path()};
        rig.user.answer = false;
        rig.user.whileAsked = [&] { EXPECT_EQ(rig.instrument.Settings().carrier1, 0); };
        HardInitFields fields;
        fields.type = 1;
        fields.bands = {BandBox::Egsm};
        if (restores)
            rig.Done(service.Memory().Restore());
        else
            rig.Done(service.Hardware().Initialise(fields).outcome);
        ASSERT_TRUE(rig.RunUntilFree());
        EXPECT_FALSE(rig.user.questions.empty());
    }
}

TEST(FreeCommand, IsRefusedWithinARunWhoseEndSwitchesOffWhatItHadSwitchedOn) {
    ServiceRig rig;
    ServiceDesk& service = rig.program.Service();
    ASSERT_TRUE(rig.Done(service.Send("#SPB1")));
    rig.time.RunFor(500);
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.RunUntilRunIsOn());
    EXPECT_FALSE(rig.Done(service.Send("#SPB1")));
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    rig.time.RunFor(2000);
    EXPECT_EQ(rig.instrument.Settings().carrier1 + rig.instrument.Settings().carrier2, 0);
    EXPECT_FALSE(rig.S().factory.KeepsCarriers());
}

} // namespace
} // namespace qor::test
