#pragma once

/// The option pages: letter-keyed menus that show settings with their present values and change them.

enum class OptionPage {
    setup,
    dimension,
    language,
    informationDisplay,
    color,
    font,
    output,
    outputDevice,
    ports,
    fileFormat,
    mainOptions,
    zoom,
    zoomRange,
    zoomLimit,
    style,
    pointSymbols,
    lines,
    dataOnPlot,
    inputMethod,
    fitMethod,
    likelihoodModification,
    regressionKind,
    distribution,
    confidence,
    limitKind,
    threshold,
    weibayes,
    markerLine,
    testPlanning,
    testSetup,
    findInTestPlan,
    reportContent,
    plotOrReport,
    functionPlot,
    formerResults,
    processLimits,
    yScaleKind,
    extendedOptions,
    cumulativeInput,
    parameterStart,
    analysisEquations,
    bounds,
    calculator,
    library,
    sample
};

/// Shows a page until the user leaves it. True when it changed a setting: the caller runs calcplot; settings
/// of the settings file are saved by the page.
bool optionpage(OptionPage page);
