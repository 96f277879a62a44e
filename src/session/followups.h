#pragma once

/// What a script asks for behind its run, in the report after the analysis of the sets: for every set with a
/// line the choice among families (distributionAsked), two failure modes (mixtureAsked) and the table of the
/// likelihood (gridAsked). The desktop has them on pages of their own.
void followups();
