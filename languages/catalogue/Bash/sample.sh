#!/usr/bin/env bash
# Keeps dated copies of folders.

set -euo pipefail
shopt -s extglob nullglob

readonly VERSION=1.4
declare -i copies=7
declare -A sizes=([small]=10 [large]=1000)
export PATH="$HOME/bin:${PATH}" LANG=C
targets=("$@" /etc "/srv/my data")
quiet=

usage() {
  cat <<-END >&2
	usage: ${0##*/} [-q] [-n COUNT] FOLDER...
	  copies are kept for $copies days, today is $(date +%F)
	END
  exit 64
}

function log {
  local level=$1
  shift
  [[ -n $quiet && $level != error ]] || printf '%s\t%s\n' "$level" "$*"
}

while getopts ":qn:h" option; do
  case $option in
    q) quiet=1 ;;
    n | N) copies=$OPTARG ;;
    [hH]?(elp)) usage ;;
    \?)
      log error "unknown option -$OPTARG"
      exit 2
      ;;
    +([0-9])) copies=$option ;&
    *) usage ;;
  esac
done
shift $((OPTIND - 1))

archive() {
  local folder=${1:?folder missing} name
  name=${folder//\//_}
  name=${name%.bak}; name=${name#_}; name=${name^^}
  local file="/var/backups/${name:-root}-$(date '+%Y%m%d').tar.gz"
  if [ -e "$file" ] && ! [ "$FORCE" = "yes" ]; then
    log info "kept $file"
    return 0
  elif [[ $folder =~ ^/(proc|sys)(/|$) || ! -d $folder ]]; then
    log error "not a folder: $folder"
    return 1
  else
    tar --create --gzip --file "$file" "$folder" 2>/dev/null | tee -a out.log &
    wait $!
  fi
}

for folder in "${targets[@]}"; do
  archive "$folder" || continue
  (( total += ${#folder} * 2, count++ ))
done

for ((i = 0; i < 10 && i <= copies; i++)); do
  echo "copy $((i % 3 == 0 ? i ** 2 : ~i)) of {$copies}" >> "$LOG"
done

until ping -c 1 -W 2 example.org &> /dev/null; do
  sleep 5s
done

select answer in yes no; do
  break
done

mapfile -t lines < <(find . -name '*.sh' -newer ./stamp -print0 | sort -z)
diff <(sort one) <(sort two) > >(tee changes) || true
unset -v lines answer
trap 'rm -f -- "$temporary"' EXIT INT
IFS=$'\n\t' read -r first rest <<< "$line"
today=`date`
echo $"translated" "escaped \"quotes\" and \$dollars" {1..10} ~/notes "$?" "$#"

cat << 'RAW' | grep -v "^#"
nothing is $expanded here
RAW

if ! command -v jq > /dev/null; then source ./fallback.sh; fi
test -f /etc/os-release && . /etc/os-release
(cd /tmp && make -j4 CFLAGS="-O2" all) 2>&1
time ls | wc -l; DEBUG=1 ./run --level=3 -x "${sizes[small]}" "${targets[@]:1:2}"
{ echo start; true; } > log.txt
echo "${name/old/new}" "${!ref}" "${var:+set}"
# Arrays, arithmetic and what is left of strings
numbers=(1 2 [5]=3); numbers+=(4)
(( numbers[0]++ )); let "copies -= 1"
echo "${numbers[@]}" "${#numbers[*]}" "${name:0:3}" "${name,,}" "${name/%.sh/.txt}"
while IFS=: read -r user _ id; do [[ $id -ge 1000 && $user == [a-z]* ]] && echo "$user"; done < /etc/passwd
printf -v padded '%05d' "$(( 16#ff | 0x0f << 2 ))"
exec 3>&1 4<input.txt; echo "to three" >&3
coproc cat; [ -n "${BASH_VERSION-}" ] || exit 1
if (( copies > 5 )) || test "$1" -lt 3; then unset "numbers[0]"; elif false; then :; fi
