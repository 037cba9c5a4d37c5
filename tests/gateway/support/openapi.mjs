// A client that knows the interface for services from its OpenAPI document alone: it builds each request from the
// document, and holds each answer against it.
import { Validator } from '@seriousme/openapi-schema-validator'
import Ajv from 'ajv/dist/2020.js'
import assert from 'node:assert/strict'

const METHODS = ['get', 'put', 'post', 'delete', 'patch', 'head', 'options']

/** What is wrong with the document as such; empty for a proper one. */
export async function faultsOf(document) {
  const { valid, errors } = await new Validator().validate(structuredClone(document))
  return valid ? [] : errors
}

export class Interface {
  /** `met` gets "operationId status" of each answer that comes. */
  constructor(document, met = new Set()) {
    this.document = document
    this.met = met
    this.operations = this.#readOperations()
    this.validators = new Map()
    this.ajv = new Ajv({ allErrors: true, strict: true, allowUnionTypes: true, strictTypes: false, strictRequired: false })
    // Schemas refer to those below this member.
    this.ajv.addVocabulary(['components'])
  }

  /** The value itself, or the one that its `$ref` leads to. */
  resolved(value) {
    if (value?.$ref === undefined) return value
    const steps = value.$ref.replace(/^#\//, '').split('/')
    return steps.reduce((found, step) => found[step.replaceAll('~1', '/').replaceAll('~0', '~')], this.document)
  }

  #readOperations() {
    const operations = new Map()
    for (const [path, item] of Object.entries(this.document.paths))
      for (const method of METHODS.filter((known) => item[known])) {
        const described = item[method]
        const parameters = [...(item.parameters ?? []), ...(described.parameters ?? [])].map((one) => this.resolved(one))
        const responses = new Map(Object.entries(described.responses).map(([status, one]) => [Number(status), this.resolved(one)]))
        const needsToken = (described.security ?? this.document.security).length > 0
        const id = described.operationId
        operations.set(id, { ...described, id, method: method.toUpperCase(), path, parameters, responses, needsToken })
      }
    return operations
  }

  operation(id) {
    const operation = this.operations.get(id)
    assert.ok(operation, `The document knows no operation ${id}`)
    return operation
  }

  /** What ajv complains of where the value does not obey the schema; empty when it does. */
  faults(schema, value) {
    const key = JSON.stringify(schema)
    if (!this.validators.has(key))
      this.validators.set(key, this.ajv.compile({ ...schema, components: { schemas: this.document.components.schemas } }))
    const validate = this.validators.get(key)
    return validate(value) ? [] : validate.errors.map((fault) => `${fault.instancePath} ${fault.message} ${JSON.stringify(fault.params)}`)
  }

  /** The path with its query, and the headers that stand for parameters. Only what the document names can be given. */
  target(operation, given) {
    let { path } = operation
    const query = []
    const headers = {}
    for (const [name, value] of Object.entries(given)) {
      const parameter = operation.parameters.find((one) => one.name === name)
      assert.ok(parameter, `${operation.id} has no parameter ${name}`)
      const text = encodeURIComponent(value)
      if (parameter.in === 'path') path = path.replace(`{${name}}`, text)
      else if (parameter.in === 'query') query.push(`${encodeURIComponent(name)}=${text}`)
      else headers[name.toLowerCase()] = String(value)
    }
    assert.doesNotMatch(path, /[{}]/, `${operation.id} needs all parameters of its path`)
    return { path: query.length ? `${path}?${query.join('&')}` : path, headers }
  }

  /**
   * Sends one request to the server and gives its status, headers and body, which obey the document. `given` holds
   * parameters by name. `options`: `token`, `body` (a value that becomes JSON, or text or bytes that go out as they
   * are), `withoutLength` to send it in chunks, `headers` beside those, `target` in the place of what the parameters
   * lead to.
   */
  async ask(server, id, given = {}, options = {}) {
    const operation = this.operation(id)
    const { path, headers } = options.target ? { path: options.target, headers: {} } : this.target(operation, given)
    if (options.token !== undefined) headers.authorization = `Bearer ${options.token}`
    const body = bytesOf(options.body)
    if (body !== undefined) headers['content-type'] = 'application/json'
    if (body !== undefined && !options.withoutLength) headers['content-length'] = body.length
    Object.assign(headers, options.headers)
    const reply = await server.request(operation.method, path, { headers, body })
    this.check(operation, reply)
    return reply
  }

  /** Fails unless the document describes this answer of the operation: status, headers, type and body. */
  check(operation, reply) {
    const what = `${operation.id} answered ${reply.status} ${reply.text.slice(0, 300)}`
    const response = operation.responses.get(reply.status)
    assert.ok(response, `${what}: the document does not know this status`)
    for (const [name, header] of Object.entries(response.headers ?? {})) this.#checkHeader(what, name, this.resolved(header), reply)
    const type = reply.headers['content-type']
    assert.ok(response.content[type], `${what}: the document does not know the type ${type}`)
    const faults = this.faults(response.content[type].schema, reply.body)
    assert.deepEqual(faults, [], what)
    this.met.add(`${operation.id} ${reply.status}`)
  }

  #checkHeader(what, name, header, reply) {
    const text = reply.headers[name.toLowerCase()]
    if (text === undefined) return assert.ok(!header.required, `${what}: without the header ${name}`)
    const value = header.schema.type === 'integer' ? Number(text) : text
    assert.deepEqual(this.faults(header.schema, value), [], `${what}: the header ${name} is ${text}`)
  }

  /** "operationId status" of the answers that the document names and that never came. */
  unmet() {
    const all = [...this.operations.values()].flatMap((one) => [...one.responses.keys()].map((status) => `${one.id} ${status}`))
    return all.filter((answer) => !this.met.has(answer))
  }

  /** The request that the examples of the document make: parameters and body. */
  exampleOf({ parameters, requestBody }) {
    // Of an object's name and number one is enough.
    const given = parameters.filter((one) => one.name !== 'object').map((one) => [one.name, one.example])
    return { given: Object.fromEntries(given), body: requestBody?.content['application/json'].example }
  }

  /** The operations that need a token. */
  guarded() {
    return [...this.operations.values()].filter((one) => one.needsToken)
  }

  /** Every example of the document with the schema that it has to obey. */
  *examples() {
    for (const operation of this.operations.values()) {
      for (const parameter of operation.parameters)
        if (parameter.example !== undefined) yield { what: `${operation.id} ${parameter.name}`, ...parameter, value: parameter.example }
      const bodies = Object.entries(operation.requestBody?.content ?? {}).map((one) => ['request', one])
      for (const [status, response] of operation.responses)
        for (const content of Object.entries(response.content)) bodies.push([status, content])
      for (const [name, [, { schema, example, examples = {} }]] of bodies) {
        const values = [...Object.values(examples).map((one) => this.resolved(one).value), example]
        for (const value of values.filter((one) => one !== undefined)) yield { what: `${operation.id} ${name}`, schema, value }
      }
    }
  }
}

function bytesOf(body) {
  if (body === undefined || Buffer.isBuffer(body)) return body
  return Buffer.from(typeof body === 'string' ? body : JSON.stringify(body))
}
