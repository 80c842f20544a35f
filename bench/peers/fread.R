# fread of data.table: a data.table. It reads ISO times itself; the German ones are texts.
#
#   Rscript fread.R SHAPE FILE THREADS
suppressPackageStartupMessages(library(data.table))

arguments <- commandArgs(trailingOnly = TRUE)
file <- arguments[2]
threads <- as.integer(arguments[3])
shape <- list(
  logger = list(separator = ";", decimal = ",", times = "character", columns = rep("real", 8)),
  wide = list(separator = ",", decimal = ".", times = c("IDate", "character"), columns = rep("real", 64)),
  ints = list(separator = "\t", decimal = ".", times = "numeric", columns = rep("whole", 12)),
  mixed = list(separator = ";", decimal = ".", times = "POSIXct",
               columns = c("boolean", "unit", "hex", "real", "character", "text", "text"))
)[[arguments[1]]]
types <- c(real = "numeric", whole = "integer", boolean = "logical", unit = "character", hex = "character",
           character = "character", text = "character")
sums <- list(
  real = sum,
  whole = function(column) sum(as.numeric(column)),
  boolean = sum,
  unit = function(column) sum(as.numeric(sub(" kg", "", column, fixed = TRUE))),
  hex = function(column) sum(as.numeric(strtoi(column, 16L))),
  character = function(column) sum(as.numeric(utf8ToInt(paste(column, collapse = "")))),
  text = function(column) sum(nchar(column))
)

setDTthreads(threads)
taken <- system.time(rows <- fread(
  file, sep = shape$separator, dec = shape$decimal, header = TRUE, quote = "\"", nThread = threads,
  colClasses = unname(c(shape$times, types[shape$columns])), showProgress = FALSE
))
first <- length(shape$times)
values <- vapply(seq_along(shape$columns), function(index) {
  as.numeric(sums[[shape$columns[index]]](rows[[first + index]]))
}, 0)
cat(sprintf("{\"engine\": \"fread\", \"rows\": %d, \"sums\": [%s], \"seconds\": %.6f, \"cpu\": %.6f}\n",
            nrow(rows), paste(sprintf("%.17g", values), collapse = ", "), taken[["elapsed"]],
            taken[["user.self"]] + taken[["sys.self"]]))
