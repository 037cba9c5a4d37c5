// What PermissionBench asks of the module, asked of the npm library @casl/ability: a hundred right checks at a
// time, over as many rows and operation words. Where ZAN_BENCH_RESULTS names the file to which PermissionBench
// has added its lines, each is told beside the library's time, and the ratios are added to the file.

import { readFileSync, writeFileSync } from 'node:fs'
import { Ability } from '@casl/ability'

const version = JSON.parse(readFileSync(new URL('package.json', import.meta.url), 'utf8')).dependencies['@casl/ability']
const menuWords = ['执行']
const documentWords = [
  '增加', '删除', '修改', '复制', '浏览', '预览', '打印', '列表预览', '列表打印',
  '审核', '反审', '记账', '反记', '批审核', '批反审', '批记账', '批反记',
]
const questionsOfCall = 100
const allQuestions = 100000
const goal = 0.5

/** The effective right of each pair of object and operation; every fifth is denied. */
function makeRules(count, words) {
  return Array.from({ length: count }, (_, i) => ({
    subject: `object ${1000 + Math.floor(i / words.length)}`,
    action: words[i % words.length],
    inverted: i % 5 === 0,
  }))
}

/** In no order, and the same in each run; one in ten is set for nobody. */
function makeQuestions(rules) {
  let state = 1
  const random = () => (state = (Math.imul(state, 1664525) + 1013904223) >>> 0) / 2 ** 32
  return Array.from({ length: allQuestions }, (_, i) => {
    const { subject, action } = rules[Math.floor(random() * rules.length)]
    return { subject: i % 10 === 0 ? `no ${subject}` : subject, action }
  })
}

/** Microseconds of a hundred checks, as the time that a tenth of the rounds undercut. */
function measure(ability, questions) {
  const times = []
  let allowed = 0
  for (let round = 0; round < 40; ++round) {
    const start = process.hrtime.bigint()
    for (const { subject, action } of questions) if (ability.can(action, subject)) ++allowed
    const time = Number(process.hrtime.bigint() - start) / 1000
    times.push((time * questionsOfCall) / questions.length)
  }
  if (allowed === 0) throw new Error('the questions have no answer')
  return times.sort((a, b) => a - b)[times.length / 10]
}

function title(rows, words) {
  return `100 checks, ${rows.toLocaleString('en')} rows, ${words} ${words === 1 ? 'word' : 'words'}`
}

const file = process.env.ZAN_BENCH_RESULTS
const run = file ? JSON.parse(readFileSync(file, 'utf8')) : { results: [] }
const own = run.results.filter((line) => line.benchmark === 'PermissionBench')

console.log(`\nPermissionBench against @casl/ability ${version}`)
console.log(`${'microseconds'.padEnd(40)} ${'module'.padStart(10)} ${'library'.padStart(10)} ${'ratio'.padStart(6)} ${'goal'.padStart(6)}`)
for (const words of [menuWords, documentWords]) {
  for (const rows of [1000, 10000, 100000]) {
    const rules = makeRules(rows, words)
    const library = measure(new Ability(rules), makeQuestions(rules))
    const name = title(rows, words.length)
    const module = own.find((line) => line.name === name)
    const ratio = module ? module.candidate / library : undefined
    // With few rows the library has no goal to be held against.
    const aim = rows < 10000 ? undefined : goal
    const met = ratio !== undefined && aim !== undefined ? ratio <= aim : undefined
    console.log(
      [
        name.padEnd(40),
        (module?.candidate.toFixed(3) ?? '-').padStart(10),
        library.toFixed(3).padStart(10),
        (ratio?.toFixed(2) ?? '-').padStart(6),
        (aim?.toFixed(2) ?? '-').padStart(6),
        met === undefined ? '' : met ? 'met' : 'MISSED',
      ].join(' '),
    )
    if (met !== undefined)
      run.results.push({
        benchmark: 'PermissionBench', engine: `@casl/ability ${version}`, name,
        candidate: module.candidate, floor: library, ratio, goal: aim, met,
      })
  }
}
if (file) writeFileSync(file, `${JSON.stringify(run)}\n`)
