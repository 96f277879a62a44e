# The jobs of bench/mle_bench.cpp: the same values, the same families, processor time of one fit in milliseconds.
library(survival)

lifeof <- function(n) {
    i <- 0:(n - 1)
    p <- ((i * 7919) %% n + 0.5) / n
    data.frame(x = 1000 * (-log1p(-p))^(1 / 1.8), failed = i %% 5 >= 2)
}

# Median of repeated fits, for at least a second.
milliseconds <- function(fit) {
    times <- c()
    while (length(times) < 3 || (sum(times) < 1 && length(times) < 200))
        times <- c(times, sum(system.time(for (m in 1:3) fit())[1:2]) / 3)
    1000 * median(times)
}

job <- function(name, n, family) {
    life <- lifeof(n)
    fit <- function() survreg(Surv(x, failed) ~ 1, data = life, dist = family)
    cat(name, ",", milliseconds(fit), "\n", sep = "")
}

job("BM_WeibullProfile/1000", 1000, "weibull")
job("BM_WeibullProfile/768000", 768000, "weibull")
job("search/lognormal/10000", 10000, "lognormal")
job("search/gumbelSmallest/10000", 10000, "extreme")
