# Shared by with-pictures and with-keys: a program makes requests by files, which are answered while it runs.

# answer_requests FOLDER ENDING ANSWER COMMAND...: while the command runs, `ANSWER FILE` is called for each FOLDER/*.ENDING,
# again and again until it has removed the file. The command's exit code is passed through.
answer_requests() {
    local folder=$1 ending=$2 answer=$3
    shift 3
    watch_requests 2>/dev/null &
    local watcher=$!
    # shellcheck disable=SC2064 # this watcher
    trap "kill $watcher 2>/dev/null; wait $watcher 2>/dev/null" EXIT
    "$@"
}

watch_requests() {
    local request
    while :; do
        for request in "$folder"/*."$ending"; do
            [ -e "$request" ] && "$answer" "$request"
        done
        sleep 0.05
    done
}
