#include "plot/transforms_fixture.h"

namespace {

class Faults : public Transforms {
protected:
    static void expectfault(int number, const std::string& place) {
        EXPECT_EQ(session.msg, place);
        EXPECT_EQ(faults, std::vector{number});
        faults.clear();
        session.msg.clear();
    }
    static constexpr int negative = 5;
    static constexpr int tooBig = 6;
};

TEST_F(Faults, OverflowOfAWideQuantileLeavesTheRegister) {
    line(normal, 0, 1e308);
    EXPECT_EQ(wide(txp2xd, 0.999), 0.999);
    expectfault(tooBig, "txp2xd");
    EXPECT_EQ(single(txp2x, 0.999f), 0.999f);
    expectfault(tooBig, "txp2x");
}

TEST_F(Faults, QuotientOfAVanishingSlopeIsTooBig) {
    line(weibull, 100, 1e-309);
    EXPECT_EQ(single(txp2x, 0.25f), 0.25f);
    expectfault(tooBig, "txp2x");
    EXPECT_EQ(wide(txp2xd, 1e-12), 1e-12);
    expectfault(tooBig, "txp2xd");
}

TEST_F(Faults, QuotientThatIsTooBigLeavesXToTheLimitsOfTheProbability) {
    line(weibull, 1e-300, 2);
    EXPECT_EQ(single(txx2p, 1e30f), 1);
    expectfault(tooBig, "txx2p");
    EXPECT_EQ(wide(txx2pd, 1e100), 0.999999999999);
    EXPECT_EQ(session.udq, 1e-300);
    expectfault(tooBig, "txx2pd");
    EXPECT_EQ(wide(txx2zd, 1e100), 1e100);
    expectfault(tooBig, "txx2zd");
}

TEST_F(Faults, LogarithmOfAQuotientThatVanishesIsALogarithmFault) {
    line(lognormal, 1e300, 2);
    EXPECT_EQ(wide(txx2pd, 1e-100), 1e-100);
    expectfault(negative, "txx2pd");
    EXPECT_EQ(wide(txx2zd, 1e-100), 1e-100);
    expectfault(negative, "txx2zd");
}

TEST_F(Faults, DensitiesTellTheLineAndTheValue) {
    line(weibull, 1, 100);
    EXPECT_EQ(wide(txx2dpd, 1e10), 1e10);
    expectfault(tooBig, "txx2dpd ... eta#=1 beta#=100 x=10000000000");
    line(normal, 0.5, 1e-300);
    EXPECT_EQ(single(txx2dp, -2.5e9f), -2.5e9f);
    expectfault(tooBig, "txx2dp ... eta#=.5 beta#=1E-300 x=-2.5E+09");
    EXPECT_EQ(wide(txx2dpd, 1e10), 1e10);
    expectfault(tooBig, "txx2dpd ... eta#=.5 beta#=1E-300 x=10000000000");
}

TEST_F(Faults, MixedDensityTellsTheCurrentLine) {
    ASSERT_TRUE(allocatearrays());
    session.mixKind = 4;
    session.mixEtas(1) = session.mixEtas(2) = 10;
    session.mixBetas(1) = session.mixBetas(2) = 0.5;
    EXPECT_EQ(wide(txx2dpmixd, -3), -3);
    expectfault(negative, "txx2dpmixd ... eta#=100 beta#=2 x=-3");
    EXPECT_EQ(wide(txx2dpmixd, 0), 0); // the density of a slope below 1 has no value there
    expectfault(tooBig, "txx2dpmixd ... eta#=100 beta#=2 x=0");
}

TEST_F(Faults, FitterFormsMeetTheNegativePower) {
    for (double beta : {2.0, 2.5}) {
        line(weibull, 100, beta);
        EXPECT_EQ(single(txx2pprg, -5), 1e-12f);
        expectfault(negative, "txx2pprg");
        EXPECT_EQ(single(txx2dpprg, -5), -5);
        EXPECT_EQ(faults, std::vector{negative});
        faults.clear();
    }
    line(lognormal, 100, 2);
    EXPECT_EQ(single(txx2pprg, -5), 1e-12f);
    expectfault(negative, "txx2pprg");
    EXPECT_EQ(single(txx2dpprg, -5), -5);
    expectfault(negative, "txx2dpprg ... eta#=100 beta#=2 x=-5");
}

TEST_F(Faults, FitterFormsMeetTheOverflowThatThePlainFormsSaturate) {
    line(weibull, 1, 100);
    EXPECT_EQ(single(txx2pprg, 1e10f), 1e10f);
    expectfault(tooBig, "txx2pprg");
    line(gumbel, 0, 1, -1);
    EXPECT_EQ(single(txx2pprg, 800), 800);
    expectfault(tooBig, "txx2pprg");
    EXPECT_EQ(single(txx2dpprg, 800), 800);
    expectfault(tooBig, "txx2dpprg ... eta#=0 beta#=1 x=800");
}

TEST_F(Faults, ReciprocalOfAVanishingValueIsTooBig) {
    xyplot(5);
    EXPECT_EQ(wide(txx2txxd, 1e-310), 1e-310);
    expectfault(tooBig, "txx2txx");
    EXPECT_EQ(single(txx2txx, 1e-40f), 1e-40f);
    expectfault(tooBig, "txx2txx");
    EXPECT_EQ(wide(txtxx2xd, 1e-310), 1e-310);
    expectfault(tooBig, "txtxx2xd");
    EXPECT_EQ(single(txtxx2x, 1e-40f), 1e-40f);
    expectfault(tooBig, "txtxx2x");
    xyplot(4);
    EXPECT_EQ(wide(txtxy2yd, 1e-310), 1e-310);
    expectfault(tooBig, "txtxy2yd");
    EXPECT_EQ(single(txtxy2y, 1e-40f), 1e-40f);
    expectfault(tooBig, "txtxy2y");
}

TEST_F(Faults, PlotYTellsTheValueOnEntry) {
    xyplot(4);
    EXPECT_EQ(wide(txy2txyd, -2e-310), -2e-310);
    expectfault(tooBig, "txy2txyd ud#(in)=-2E-310");
    EXPECT_EQ(single(txy2txy, 1e-40f), 1e-40f);
    expectfault(tooBig, "txy2txy u(in)=1E-40");
}

TEST_F(Faults, PlotYWithoutAGuardOverflows) {
    EXPECT_EQ(single(txtxy2y, 1000), 1000);
    expectfault(tooBig, "txtxy2y");
    line(gumbel, 0, 1, 1);
    EXPECT_EQ(wide(txtxy2yd, -800), -800);
    expectfault(tooBig, "txtxy2yd");
}

TEST_F(Faults, SquareOfAVastStandardisedValueIsTooBig) {
    EXPECT_EQ(wide(txz2dphid, 1e200), 1e200);
    expectfault(tooBig, "txz2dphid");
}

TEST_F(Faults, LocationTellsThePointAndTheSlope) {
    session.negativeXAllowed = 1;
    line(lognormal, 7, 2);
    session.ud = -3;
    session.ydd = 0.5;
    txYandXandBeta2EtaD();
    EXPECT_EQ(session.eta, 7);
    expectfault(negative, "txYandXandBeta2EtaD Y=.5 X=-3 B=2");
    txYandXandBeta2EtaDw();
    EXPECT_EQ(session.eta, 7);
    expectfault(negative, "txYandXandBeta2EtaDw Y=.5 X=-3 B=2");
    line(weibull, 7, 2);
    session.ydd = 1e-10;
    txYandXandBeta2EtaD();
    expectfault(negative, "txYandXandBeta2EtaD Y=.0000000001 X=-3 B=2");
    session.ud = 1e300;
    session.beta = 0.01;
    txYandXandBeta2EtaD();
    expectfault(tooBig, "txYandXandBeta2EtaD Y=.0000000001 X=1E+300 B=.01");
}

TEST_F(Faults, GammaFunctionOfAVanishingSlopeIsTooBig) {
    line(weibull, 7, 0.001);
    EXPECT_EQ(wide(txmean2etad, 10), 10);
    expectfault(tooBig, "txmean2etad");
}

TEST_F(Faults, WithoutAReporterTheRegisterIsStillKept) {
    tellfault = nullptr;
    EXPECT_EQ(wide(txz2dphid, 1e200), 1e200);
    EXPECT_EQ(session.msg, "txz2dphid");
}

TEST_F(Faults, NumbersInLocationsAreTheirShortestPlainText) {
    line(lognormal, 7, 0.1);
    const auto text = [](double x) {
        session.negativeXAllowed = 1;
        line(lognormal, 7, 3);
        session.ud = x;
        session.ydd = 0.5;
        txYandXandBeta2EtaD();
        return session.msg.substr(session.msg.find("X="));
    };
    EXPECT_EQ(text(-0.1), "X=-.1 B=3");
    EXPECT_EQ(text(-12.75), "X=-12.75 B=3");
    EXPECT_EQ(text(0), "X=0 B=3");
    EXPECT_EQ(text(-123456789012345.0), "X=-123456789012345 B=3");
    EXPECT_EQ(text(-1234567890123456.0), "X=-1.234567890123456E+15 B=3");
    EXPECT_EQ(text(-1e-16), "X=-.0000000000000001 B=3");
    EXPECT_EQ(text(-1e-17), "X=-1E-17 B=3");
    EXPECT_EQ(text(-3.3e33), "X=-3.3E+33 B=3");
}

// Every routine against every kind of bad number: nothing crashes, singles stay finite where the limits say
// so, and a fault is only told of finite arguments.
class Battery : public Transforms {
protected:
    static constexpr void (*singles[])() = {txp2x,   txx2p,   txx2pprg, txx2dp,  txx2dpprg,
                                            txx2txx, txy2txy, txtxx2x,  txtxy2y, txz2logzprg,
                                            txz2lnz, txlnz2z, txz2dphi};
    static constexpr void (*wides[])() = {txp2xd,
                                          txx2pd,
                                          txx2dpd,
                                          txx2zd,
                                          txx2txxd,
                                          txx2txxdw,
                                          txy2txyd,
                                          txy2txydw,
                                          txtxx2xd,
                                          txtxy2yd,
                                          txz2logzd,
                                          txlogz2zd,
                                          txz2dphid,
                                          txYandXandBeta2EtaD,
                                          txYandXandBeta2EtaDw,
                                          txmean2etad,
                                          txx2dpmixd,
                                          txx2pmixd,
                                          txp2xmixd};
    static constexpr double values[] = {NaN,    infinite, -infinite, 0,      -0.0,     -1,
                                        1,      0.5,      1e-320,    1e-40,  1e-12,    1e300,
                                        -1e300, 3e38,     -3e38,     1e-300, 1.0000001};
    static constexpr double parameters[] = {NaN, infinite, -infinite, 0, -1, 1, 2.5, 1e-310, 1e308};

    template <class Call>
    static void eachline(Call call) {
        for (int family : {0, 1, 2, 3, 4, 9, -2, -32768})
            for (int extreme : {-1, 0, 1})
                for (double eta : parameters)
                    for (double beta : parameters) {
                        line(family, eta, beta, extreme);
                        call(eta, beta);
                    }
    }
    static void eachplot(void (*body)()) {
        body();
        for (float pair : {0.f, 1.f, 2.f, 3.f, 4.f, 5.f, static_cast<float>(NaN)}) {
            xyplot(pair);
            body();
        }
    }
};

TEST_F(Battery, FaultsAreToldOfFiniteArgumentsOnly) {
    eachplot([] {
        eachline([](double eta, double beta) {
            for (double value : values)
                for (auto routine : wides) {
                    if (routine == txx2pmixd || routine == txp2xmixd || routine == txx2dpmixd) continue;
                    line(session.dist, eta, beta, session.gumbeltype);
                    session.ydd = 0.3;
                    faults.clear();
                    wide(routine, value);
                    if (!std::isfinite(value)) {
                        EXPECT_TRUE(faults.empty()) << session.msg << " " << value;
                    }
                }
        });
    });
}

TEST_F(Battery, FiniteArgumentsNeverLeaveANumberThatIsNot) {
    eachplot([] {
        eachline([](double eta, double beta) {
            if (!std::isfinite(eta) || !std::isfinite(beta)) return;
            for (double value : values) {
                if (!std::isfinite(value)) continue;
                for (auto routine : wides) {
                    if (routine == txx2pmixd || routine == txp2xmixd || routine == txx2dpmixd) continue;
                    line(session.dist, eta, beta, session.gumbeltype);
                    session.ydd = 0.3;
                    EXPECT_TRUE(std::isfinite(wide(routine, value))) << session.msg << " " << value;
                    EXPECT_TRUE(std::isfinite(session.eta));
                }
                if (std::fabs(value) > 3.4e38) continue;
                for (auto routine : singles)
                    EXPECT_TRUE(std::isfinite(single(routine, static_cast<float>(value)))) << session.msg;
            }
        });
    });
}

TEST_F(Battery, SingleProbabilitiesStayInsideTheirLimitsWhateverComes) {
    eachline([](double, double) {
        for (double value : values) {
            const float x = value > 3.4e38    ? HUGE_VALF
                            : value < -3.4e38 ? -HUGE_VALF
                                              : static_cast<float>(value);
            const float p = single(txx2p, x);
            if (std::isnan(p)) {
                EXPECT_TRUE(std::isnan(x));
            } else {
                EXPECT_GT(p, 0);
                EXPECT_LE(p, 1);
            }
        }
    });
}

TEST_F(Battery, WideProbabilitiesStayInsideTheirLimitsForEveryNumber) {
    eachline([](double eta, double beta) {
        for (double value : values) {
            if (std::isnan(value) || !std::isfinite(eta) || !std::isfinite(beta)) continue;
            const double p = wide(txx2pd, value);
            EXPECT_GE(p, 1e-321); // an x between the limits comes back as it is
            EXPECT_LT(p, 1);
            EXPECT_GE(session.udq, 1e-300);
            EXPECT_LE(session.udq, 1);
        }
    });
}

TEST_F(Battery, MixedModelWithstandsEveryComponent) {
    ASSERT_TRUE(allocatearrays());
    session.mixFlag = 1;
    for (int kind : {0, 4, 5, 7})
        for (float eta : {0.f, -1.f, 100.f, 1e-40f, 3e38f, static_cast<float>(NaN)})
            for (float beta : {0.f, -1.f, 2.f, 1e-40f, 3e38f, static_cast<float>(NaN)})
                for (double value : values)
                    for (auto routine : {txx2pmixd, txx2dpmixd, txp2xmixd}) {
                        session.mixKind = static_cast<int16_t>(kind);
                        session.mixPortions(1) = 0.5;
                        for (int i = 1; i <= 3; ++i) {
                            session.mixEtas(i) = eta;
                            session.mixBetas(i) = beta;
                        }
                        line(weibull, 100, 2);
                        const double result = wide(routine, value);
                        const bool numbers = !std::isnan(eta) && !std::isnan(beta) && std::isfinite(value);
                        if (numbers) {
                            EXPECT_TRUE(std::isfinite(result))
                                << kind << " " << eta << " " << beta << " " << value;
                        }
                    }
}

} // namespace
