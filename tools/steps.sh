# Steps with a number, a name, their time and, when one fails, the end of what it said. Sourced by ../zan.

STEP=0
STEPS=0
SUITES_PASSED=0
SUITES_FAILED=0
FAILED_NAMES=()
LOGS=build/log

say() { printf '%s\n' "$*"; }
complain() { printf 'zan: %s\n' "$@" >&2; }

plan() {
  STEPS=$1
  mkdir -p "$LOGS"
}

logfile() { printf '%s/%s.log' "$LOGS" "$(printf '%s' "$1" | tr -c 'A-Za-z0-9' '-')"; }

# step NAME COMMAND...: runs a command quietly; stops everything when it fails.
step() {
  local name=$1 log start
  shift
  STEP=$((STEP + 1))
  log=$(logfile "$name")
  start=$SECONDS
  printf '[%d/%d] %s ... ' "$STEP" "$STEPS" "$name"
  if ("$@") >"$log" 2>&1; then
    printf 'done (%d s)\n' $((SECONDS - start))
    return
  fi
  printf 'failed\n'
  tail -n 60 "$log" >&2
  complain "$name failed; the end of what it said stands above, all of it in $log."
  exit 1
}

# counted NAME COMMAND...: runs a test suite with its output shown; failures are summed up by summary.
counted() {
  local name=$1 start=$SECONDS
  shift
  printf '\n== %s\n' "$name"
  if "$@"; then
    SUITES_PASSED=$((SUITES_PASSED + 1))
    printf '== %s: passed (%d s)\n' "$name" $((SECONDS - start))
  else
    SUITES_FAILED=$((SUITES_FAILED + 1))
    FAILED_NAMES+=("$name")
    printf '== %s: FAILED (%d s)\n' "$name" $((SECONDS - start))
  fi
}

summary() {
  printf '\nSuites after %d s:\n' "$SECONDS"
  printf '%d passed, %d failed\n' "$SUITES_PASSED" "$SUITES_FAILED"
  [ "$SUITES_FAILED" -eq 0 ] && return
  complain "These suites failed: ${FAILED_NAMES[*]}"
  exit 1
}
