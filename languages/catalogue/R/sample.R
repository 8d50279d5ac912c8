#!/usr/bin/env Rscript
# What the weather station measured in a year.

library(dplyr)
suppressPackageStartupMessages(require("ggplot2"))
source('helpers.R', local = TRUE)

#' Reads one station.
#'
#' @param path where its file lies
#' @return a data frame
read_station <- function(path, sep = ";", ..., quiet = FALSE) {
  if (!file.exists(path)) {
    stop("no such file: ", path, call. = FALSE)
  } else if (is.null(sep) || sep == "") {
    return(NULL)
  }
  data <- utils::read.csv(path, sep = sep, na.strings = c("", "NA", "-999"), ...)
  data$date <- as.Date(data$date, format = "%Y-%m-%d")
  data[["temp"]] <- data[["temp"]] - 273.15
  data[data$temp > 60 & !is.na(data$temp), "temp"] <- NA_real_
  names(data)[2L] <- "t\u00e9mp\n"
  invisible(data)
}

mean_of = function(x, na.rm = TRUE) sum(x, na.rm = na.rm) / length(x)
square <- \(x) x^2
"%+%" <- function(a, b) paste0(a, b)
3 ** 2 -> power
counter <- 0x10L
increase <- function() {
  counter <<- counter + 1e-3
  5 ->> total
}

setClass("Station", representation(name = "character", height = "numeric"))
alps <- new("Station", name = "Alps", height = 2.5e3)
cat(alps@name, "at", alps@height, 'm\n')

monthly <- read_station("data/alps.csv", quiet = T) |>
  group_by(month = format(date, "%m")) |>
  summarise(
    mean = mean_of(temp),
    low = min(temp), high = max(temp),
    .groups = "drop"
  ) %>%
  filter(mean %in% c(-5:25), high >= low) %>%
  arrange(desc(mean))

model <- lm(temp ~ month + I(height^2) - 1, data = monthly)
for (i in seq_along(letters)) {
  if (i %% 2 == 0) next
  if (i > 20L || i %/% 3 != 1) break
  print(sprintf("%s: %5.2f", LETTERS[i], i * pi))
}

n <- 10
while (n > 0) {
  n <- n - 1
}
repeat {
  n <- n + 1
  if (n >= 3) break
}

result <- tryCatch({
  warning("careful")
  matrix(1:6, nrow = 2)[1, , drop = FALSE]
}, error = function(e) {
  message("failed: ", conditionMessage(e))
  NULL
}, finally = on.exit(cat("done")))

kind <- switch(class(result)[1], matrix = "m", data.frame = , list = "l", "other")
z <- 3 + 2i
values <- c(a = 1, `b c` = -Inf, d = NaN, "e" = NA_integer_)
raw <- r"(C:\temp\new)"
first <- function(...) ..1
sapply(X = list(1, "two", TRUE), FUN = function(item) class(item))
base:::print.default(values)
private$reset(values)
summary.station <- function(object, ...) UseMethod("summary")
DT[, total := sum(x), by = .(group)]
?mean
x <- if (nrow(monthly) < 1 && TRUE) "none" else 'some'
# Objects that know their methods
Account <- setRefClass("Account",
  fields = list(balance = "numeric"),
  methods = list(
    deposit = function(x) {
      "Adds to the balance"
      balance <<- balance + x
      invisible(.self)
    }
  )
)
account <- Account$new(balance = 100)$deposit(1e2)
stopifnot(identical(account$balance, 200), !FALSE || F)
f <- y ~ x | group
squares <- vapply(1:10, \(i) i^2L, numeric(1))
m <- matrix(0, 2, 2) %*% diag(2) %o% 1:2
m[1, ] <- -squares[-1][1:2]
`my name` <- "a 'quoted' \"text\" \x41 \\"
text <- r"---(raw "text" with )" in it)---"
NULL -> nothing; NA_character_ -> missing
x$`odd name`$b@slot[["c"]]
if (is.na(x)) y <- 0x1F else y <- .5e-2
